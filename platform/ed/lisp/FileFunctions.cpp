// Text files, names of files and folders.
#include "../../db/core/Wildcard.h"
#include "../../win/CharTables.h"
#include "../../win/CodePage.h"
#include "../../win/Files.h"
#include "FileCell.h"
#include "Interpreter.h"

namespace KxPlat::Lisp {

namespace {

Value OpenFile(Interpreter&, const Arguments& arguments)
{
    const std::wstring mode = Lower(TextOf(arguments[1]));
    if (mode != L"r" && mode != L"w" && mode != L"a")
        throw Failure(L"bad argument value: file mode " + TextOf(arguments[1]));
    auto* file = new FileCell;
    Value held(file);
    return file->Open(TextOf(arguments[0]), mode[0]) ? held : Value();
}

Value CloseFile(Interpreter&, const Arguments& arguments)
{
    if (!FileOf(arguments[0]).Close())
        Fail(L"cannot write the file");
    return Value();
}

FileCell& ReadableFile(const Value& value)
{
    FileCell& file = FileOf(value);
    if (!file.IsReadable())
        BadArgument(L"streamp", value);
    return file;
}

FileCell& WritableFile(const Value& value)
{
    FileCell& file = FileOf(value);
    if (file.IsReadable())
        BadArgument(L"streamp", value);
    return file;
}

Value ReadLine(Interpreter&, const Arguments& arguments)
{
    std::wstring line;
    return ReadableFile(arguments[0]).ReadLine(line) ? Value(line) : Value();
}

Value ReadCharacter(Interpreter&, const Arguments& arguments)
{
    wchar_t character = 0;
    return ReadableFile(arguments[0]).ReadCharacter(character) ? Value(int32_t(character)) : Value();
}

Value WriteLine(Interpreter&, const Arguments& arguments)
{
    WritableFile(arguments[1]).Write(TextOf(arguments[0]) + L"\n");
    return arguments[0];
}

Value WriteCharacter(Interpreter&, const Arguments& arguments)
{
    const int32_t code = IntegerOf(arguments[0]);
    if (code < 0 || code > 0x10FFFF)
        BadArgument(L"fixnump:", arguments[0]);
    WritableFile(arguments[1]).Write(std::wstring(1, wchar_t(code)));
    return arguments[0];
}

// Where the last folder ends and where the extension starts, its point included.
struct NameParts {
    size_t base;
    size_t extension;
};

NameParts PartsOf(const std::wstring& path)
{
    const size_t separator = path.find_last_of(L"/\\:");
    const size_t base = separator == std::wstring::npos ? 0 : separator + 1;
    const size_t point = path.rfind(L'.');
    return {base, point == std::wstring::npos || point < base ? path.size() : point};
}

Value BaseName(Interpreter&, const Arguments& arguments)
{
    const std::wstring& path = TextOf(arguments[0]);
    const NameParts parts = PartsOf(path);
    return Value(path.substr(parts.base, parts.extension - parts.base));
}

Value FolderName(Interpreter&, const Arguments& arguments)
{
    const std::wstring& path = TextOf(arguments[0]);
    size_t end = PartsOf(path).base;
    while (end > 1 && (path[end - 1] == L'/' || path[end - 1] == L'\\') && path[end - 2] != L':')
        --end;
    return Value(path.substr(0, end));
}

Value Extension(Interpreter&, const Arguments& arguments)
{
    const std::wstring& path = TextOf(arguments[0]);
    const NameParts parts = PartsOf(path);
    return parts.extension == path.size() ? Value() : Value(path.substr(parts.extension));
}

Value FileSize(Interpreter&, const Arguments& arguments)
{
    const FileInfo info = FileInfoOf(HostPath(TextOf(arguments[0])));
    return info.exists && !info.isFolder ? Value(int32_t(std::min<uint64_t>(info.size, INT32_MAX))) : Value();
}

Value IsFolder(Interpreter& lisp, const Arguments& arguments)
{
    return lisp.Truth(FileInfoOf(HostPath(TextOf(arguments[0]))).isFolder);
}

Value DeleteOneFile(Interpreter& lisp, const Arguments& arguments)
{
    return lisp.Truth(RemoveFile(HostPath(TextOf(arguments[0]))) == 0);
}

Value RenameOneFile(Interpreter& lisp, const Arguments& arguments)
{
    const std::string to = HostPath(TextOf(arguments[1]));
    return lisp.Truth(!FileInfoOf(to).exists && RenameFile(HostPath(TextOf(arguments[0])), to) == 0);
}

Value CopyOneFile(Interpreter&, const Arguments& arguments)
{
    const std::string to = HostPath(TextOf(arguments[1]));
    const bool appends = bool(arguments.Get(2));
    int error = 0;
    const std::string bytes = ReadWholeFile(HostPath(TextOf(arguments[0])), error);
    if (error != 0 || (FileInfoOf(to).exists && !appends))
        return Value();
    int ignored = 0;
    const std::string before = appends ? ReadWholeFile(to, ignored) : std::string();
    AtomicFile out;
    if (out.Open(to) != 0)
        return Value();
    out.Write(before);
    out.Write(bytes);
    return out.Commit() == 0 ? Value(int32_t(std::min<size_t>(bytes.size(), INT32_MAX))) : Value();
}

// (vl-directory-files folder pattern what): what is 1 for files only, -1 for folders only, 0 for both.
Value FolderFiles(Interpreter&, const Arguments& arguments)
{
    const std::string folder = arguments.Get(0) ? HostPath(TextOf(arguments[0])) : CurrentFolder();
    const std::wstring pattern = arguments.Get(1) ? TextOf(arguments[1]) : L"*";
    const bool isAll = pattern == L"*" || pattern == L"*.*";
    const int32_t what = arguments.Get(2) ? IntegerOf(arguments[2]) : 0;
    ListBuilder list;
    for (const FolderEntry& entry : ListFolder(folder)) {
        if (what != 0 && entry.isFolder != (what < 0))
            continue;
        const std::wstring name = FromUtf8(entry.name);
        if (isAll || WildcardMatch(name, pattern))
            list.Add(name);
    }
    return list.Take();
}

Value MakeOneFolder(Interpreter& lisp, const Arguments& arguments)
{
    return lisp.Truth(MakeFolder(HostPath(TextOf(arguments[0]))) == 0);
}

const Builtin kRows[] = {
    {L"OPEN", OpenFile, 2, 3},
    {L"CLOSE", CloseFile, 1, 1},
    {L"READ-LINE", ReadLine, 1, 1},
    {L"READ-CHAR", ReadCharacter, 1, 1},
    {L"WRITE-LINE", WriteLine, 2, 2},
    {L"WRITE-CHAR", WriteCharacter, 2, 2},
    {L"VL-FILENAME-BASE", BaseName, 1, 1},
    {L"VL-FILENAME-DIRECTORY", FolderName, 1, 1},
    {L"VL-FILENAME-EXTENSION", Extension, 1, 1},
    {L"VL-FILE-SIZE", FileSize, 1, 1},
    {L"VL-FILE-DIRECTORY-P", IsFolder, 1, 1},
    {L"VL-FILE-DELETE", DeleteOneFile, 1, 1},
    {L"VL-FILE-RENAME", RenameOneFile, 2, 2},
    {L"VL-FILE-COPY", CopyOneFile, 2, 3},
    {L"VL-DIRECTORY-FILES", FolderFiles, 0, 3},
    {L"VL-MKDIR", MakeOneFolder, 1, 1},
};

}   // namespace

const BuiltinTable kFiles = TableOf(kRows);

}   // namespace KxPlat::Lisp
