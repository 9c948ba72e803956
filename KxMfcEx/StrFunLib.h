// Texts, lists of texts, names of files and times. Null texts count as empty ones.
#pragma once
#include "KxExport.h"
#include <vector>

class KXARX_API CStrFunLib {
public:
    virtual ~CStrFunLib();

    // --- splitting: the rules on empty fields differ on purpose ---

    // Every field between separators; empty ones only with `keepEmpty`. `out` is emptied first.
    static void SplitString(const wchar_t* text, CStringArray& out, wchar_t separator, int keepEmpty);
    // The text from `position` up to the whole delimiter, behind which `position` moves; without a delimiter the rest,
    // and `position` becomes -1. Empty for a negative position.
    static CString GettokenStr(const CString& text, const CString& delimiter, int& position);
    // The tokens up to the first empty one: "a,,b" gives "a" only.
    static std::vector<CString> SplitString(CString text, CString delimiter);
    // Appends the fields, trimmed of white space and separators, that are not empty; answers how many.
    static int SplitString(CString text, char separator, std::vector<CString>& out);
    // The standard tokenizer, but leading delimiters are not skipped: an empty token ends the scan with null. A null
    // text goes on where the last call of any caller stopped.
    static char* strtokNoPass(char* text, const char* delimiters);
    // The pieces between whole delimiters, empty ones included; answers their count. `out` is emptied first.
    static int StringToStringArray(const wchar_t* text, const wchar_t* delimiter, CStringArray& out);
    // Field `index`, counted from 0; empty when there is none.
    static CString GetStringSplit(const wchar_t* text, int index, wchar_t separator);
    // 1 when one field equals `item`, without regard to case.
    static int IsInSplitCString(const wchar_t* text, const wchar_t* item, wchar_t separator);
    static CString LinkArrayString(const CStringArray& texts, const wchar_t* delimiter);
    // Keeps the first of equal texts, in their order; answers how many it removed.
    static int UniqueStrAry(CStringArray& texts);

    // --- finding and changing ---

    // 1 when the pieces of `pattern` between "*" stand in `text` in their order, without regard to case. Nothing is
    // anchored: "ab*" matches "xxabyy". A pattern without "*" must equal the text.
    static int CompareNoCaseWithFormat(const wchar_t* pattern, const wchar_t* text);
    // 1 when the whole text has the form: "#" stands for a digit, "@" for a letter, "?" for any character, "*" for any
    // run of characters, "`" takes the next character as it is; letters match without regard to case.
    static int AssertString(const wchar_t* text, const wchar_t* form);
    // The first place from `start` on, without regard to case; -1 when there is none. An empty part is found at once.
    static int FindNoCase(const wchar_t* text, const wchar_t* part, int start = 0);
    // Removes every occurrence in one pass; answers how many.
    static int RemoveStr(CString& text, const wchar_t* part);
    // Replaces every occurrence, without regard to case, within a buffer of `size` characters. Answers how many;
    // -1, and nothing changed, when the result has no room.
    static int ReplaceNoCase(wchar_t* buffer, int size, const wchar_t* oldText, const wchar_t* newText);
    // Each of the characters `signs` becomes `replacement`.
    static CString RepalceSigns(const CString& text, const wchar_t* signs, wchar_t replacement);
    static CString RemoveTaileDotes(const CString& text);
    static CString RemoveHeaderDotes(const CString& text);

    // Keep the first (Reverse: the last) `count` bytes or characters and no half of one: less is kept where the cut
    // would fall inside. -1 keeps all. Each works in the caller's buffer and answers it.
    static char* StrTrimValid(char* text, int count);
    static wchar_t* StrTrimValid(wchar_t* text, int count);
    static char* StrTrimReverseValid(char* text, int count);
    static wchar_t* StrTrimReverseValid(wchar_t* text, int count);

    // --- names of files ---

    // "ToolK.arx" becomes the name for a release of the host: "ToolK10.arx" for 18, "Tool.arx" for an unknown one.
    // Names that do not end in "k.arx" stay.
    static void GetKxArxVerName(CString& name, int release, int unused = 0);
    // 1 when the name has that extension, with or without its dot; null asks for any.
    static int IsExistEXTName(const wchar_t* file, const wchar_t* extension = nullptr);
    static CString GetFileExtName(const wchar_t* file);    // "dwg"
    static CString GetFileName(const wchar_t* file);       // "name.dwg"
    static CString GetFilePath(const wchar_t* file);       // "C:\dir\"
    static CString GetFileBaseName(const wchar_t* file);   // "name"
    // 1 when a file can have that name: no separator, wildcard or control character, no device such as "NUL", no blank
    // or dot at its end, at most 255 characters.
    static int checkFileName(const wchar_t* name);
    // The folder of the running program, ending in "\".
    static CString GetCurExeRunPath();
    // Appends the full names of files and folders whose own name holds `part`, without regard to case, with
    // `subFolders` also those further down (links are not followed). Answers how many.
    static int BlurSearchPath(const wchar_t* folder, const wchar_t* part, CStringArray& out, int subFolders);
    // The index of the first path that names the same place, -1 without one. Case, the kind of slash, a slash at the
    // end and "." steps make no difference.
    static int FindSamePath(const CStringArray& paths, const wchar_t* path);

    // --- the rest ---

    static int IsWow64();   // 1 for a 32-bit process on a 64-bit system
    // Now, in local time: "2026-03-09 07:05:01"
    static CString GetTimeString();
    // Reads "%d-%d-%d %d:%d:%d". 0, and `time` untouched, when it is no date and time.
    static int Str2Time(const wchar_t* text, SYSTEMTIME& time);
    // At most that many decimals, without zeros at the end: "2.5", "-3", "0".
    static CString DblToStr(double value, int decimals = 6);
    static CString IntToStr(int value);
};
