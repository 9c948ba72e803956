// Whole commands as a drafter types them. Each folder of tests/transcripts holds a drawing, or the name of a real one,
// the lines typed, and the text that the user must see. A line "^=" adds to that text what has changed in the drawing
// since its start. tools/renew-transcripts writes the text anew, for review.
#include "ap/AcApDocument.h"
#include "db/core/Stub.h"
#include "DrawingState.h"
#include "ed/acedads.h"
#include "ed/Session.h"
#include "rx/ResBufs.h"
#include "ui/ScriptedUi.h"
#include "win/CodePage.h"
#include "win/Files.h"
#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <sstream>
#include <string>
#include <utility>
#include <vector>

namespace {

const std::string g_folder = KX_TEST_DATA "/../transcripts";

std::string Contents(const std::string& path)
{
    std::ifstream file(path, std::ios::binary);
    std::ostringstream text;
    text << file.rdbuf();
    return text.str();
}

std::vector<std::string> Names()
{
    std::vector<std::string> names;
    for (const auto& entry : std::filesystem::directory_iterator(g_folder)) {
        if (entry.is_directory())
            names.push_back(entry.path().filename().string());
    }
    std::sort(names.begin(), names.end());
    return names;
}

// The drawing of a transcript; a real one may be absent.
std::string DrawingOf(const std::string& folder)
{
    std::string name = Contents(folder + "/drawing.txt");
    name.erase(name.find_last_not_of(" \r\n") + 1);
    if (name.empty())
        return folder + "/drawing.dxf";
    return name.rfind("samples/", 0) == 0 ? KX_SAMPLES + name.substr(7) : KX_DRAWINGS "/" + name;
}

// "@NAME" in the input stands for a file of the test data, whose folder is not told in what was said.
std::wstring DataFolder()
{
    return KxPlat::DrivePath(KX_TEST_DATA) + L"\\";
}

std::wstring Typed(const std::string& line)
{
    return line.rfind('@', 0) == 0 && line.size() > 1 && line[1] != ','
               ? DataFolder() + KxPlat::FromUtf8(line.substr(1))
               : KxPlat::FromUtf8(line);
}

std::string SaidBy(KxPlat::ScriptedUi& ui)
{
    std::wstring said = ui.TakePrinted() + L"\n" + std::exchange(ui.complained, L"") + std::exchange(ui.boxes, L"");
    const std::wstring folder = DataFolder();
    for (size_t at = said.find(folder); at != said.npos; at = said.find(folder))
        said.replace(at, folder.size(), L"@");
    return KxPlat::ToUtf8(said);
}

// Types the lines of input.txt on the drawing, with the module loaded. A line "^[" is Esc; "^y" and "^n" answer the
// next message box.
std::string Play(const std::string& folder, KxPlat::ScriptedUi& ui)
{
    KxPlat::SessionOptions options;
    KxPlat::Session session(options);
    AcApDocument* document = nullptr;
    std::wstring why;
    EXPECT_EQ(KxPlat::OpenDrawing(KxPlat::DrivePath(DrawingOf(folder)), document, why), Acad::eOk)
        << KxPlat::ToUtf8(why);
    EXPECT_EQ(acedArxLoad(KxPlat::DrivePath(KX_BIN "/KxArxBase.arx").c_str()), RTNORM);
    ui.TakePrinted();
    const std::string input = Contents(folder + "/input.txt");
    const bool compares = input.find("^=\n") != std::string::npos;
    const KxTest::DrawingState before = compares ? KxTest::StateOf(*document->database()) : KxTest::DrawingState();
    std::istringstream lines(input);
    std::string said;
    for (std::string line; std::getline(lines, line);) {
        if (line == "^y" || line == "^n") {
            ui.boxAnswers.push_back(line == "^y" ? IDYES : IDNO);
        } else if (line != "^=") {
            ui.answers.push_back(line == "^[" ? L"\x1b" : Typed(line));
        } else {
            session.Loop();
            said += SaidBy(ui);
            said += "-- changes --\n" + KxTest::Changes(before, KxTest::StateOf(*document->database()));
        }
    }
    session.Loop();
    return said + SaidBy(ui);
}

class Transcript : public testing::TestWithParam<std::string> {};

}   // namespace

TEST_P(Transcript, SaysWhatWasRecorded)
{
    const std::string folder = g_folder + "/" + GetParam();
    if (!std::filesystem::exists(DrawingOf(folder)))
        GTEST_SKIP() << "no drawing " << DrawingOf(folder);
    const long openObjects = KxPlat::OpenObjectCount();
    const long resBufs = KxPlat::LiveResBufs();
    KxPlat::ScriptedUi ui;
    KxPlat::SetUi(&ui);
    const std::string said = Play(folder, ui);
    KxPlat::SetUi(nullptr);
    if (std::getenv("KX_RENEW_TRANSCRIPTS") != nullptr)
        std::ofstream(folder + "/expected.txt", std::ios::binary) << said;
    EXPECT_EQ(said, Contents(folder + "/expected.txt"));
    EXPECT_TRUE(ui.answers.empty()) << "lines were left over";
    EXPECT_EQ(KxPlat::OpenObjectCount(), openObjects);
    EXPECT_EQ(KxPlat::LiveResBufs(), resBufs);
}

INSTANTIATE_TEST_SUITE_P(Commands, Transcript, testing::ValuesIn(Names()), [](const auto& info) {
    std::string name = info.param;
    std::replace(name.begin(), name.end(), '-', '_');
    return name;
});
