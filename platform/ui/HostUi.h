// What a host program supplies: the one seam between the platform and a terminal, a window or a test.
// Every function has a harmless default, so that a host overrides only what it can do better.
// All texts are wide; the host owns the conversion to whatever it shows them on.
#pragma once
#include <string>
#include <string_view>
#include <vector>

namespace KxPlat {

class DialogModel;   // ui/DialogModel.h: the controls of one dialog, described without a toolkit

enum class InputKind { Command, Text, Number, Point, Keyword, Selection, Entity };

// What the editor wants to know next. A terminal needs `prompt` only; a window may show the rest.
struct InputRequest {
    InputKind kind = InputKind::Command;
    std::wstring prompt;
    std::vector<std::wstring> keywords;
    const double* basePoint = nullptr;   // three reals in world units, or null: start of a rubber band
};

// One answer. A host that can pick with a pointer answers with a point or with objects; all others with a line of text.
struct InputEvent {
    enum class Type { Text, Point, Objects, Cancel, End };
    Type type = Type::End;
    std::wstring text;   // without the line end
    double point[3] = {0, 0, 0};
    std::vector<void*> objects;   // AcDbStub pointers
};

struct FileRequest {
    std::wstring title;
    std::wstring initial;      // a path or name to start from, may be empty
    std::wstring extensions;   // "dwg;dxf"
    bool forSave = false;
};

class HostUi {
public:
    virtual ~HostUi() = default;

    // Text for the command line. A new line starts with "\n", as the drawing host does it.
    virtual void Print(std::wstring_view text);
    // A prompt and the answer to it that came from a script, as if the user had typed it.
    virtual void PrintAnswer(std::wstring_view promptAndAnswer) { Print(promptAndAnswer); }
    // The host's own complaint, "WHAT: WHY" without the program name.
    virtual void Complain(std::wstring_view text);
    // The next piece of input. The default ends the input.
    virtual InputEvent Ask(const InputRequest& request);
    // True when the user asked to stop what is running (Esc or Ctrl-C); asking clears it.
    virtual bool Interrupted();
    // `type` holds the MB_ flags of MessageBoxW; the answer is one of its ID codes. The default answers with the
    // default button.
    virtual int ShowMessage(std::wstring_view text, std::wstring_view caption, unsigned type);
    // False when the user cancels. The default asks on the command line through Ask().
    virtual bool AskFileName(const FileRequest& request, std::wstring& path);
    // Runs a dialog to its end and returns the code given to EndDialog. The default cancels it.
    virtual int RunDialog(DialogModel& dialog);
    // Progress of a long read or write, 0 to 100; -1 ends it.
    virtual void Progress(std::wstring_view what, int percent);
    // The drawing was regenerated: a view must be drawn anew.
    virtual void Regenerated();
};

// The host of this process; never null. Setting null puts the harmless one back.
HostUi& Ui();
void SetUi(HostUi* ui);

}   // namespace KxPlat
