// Whole commands as a drafter types them. Each folder of tests/transcripts holds a drawing, the lines typed and the
// text that the user must see; tools/renew-transcripts writes that text anew, for review.
#include "db/core/Stub.h"
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

// Types the lines of input.txt on the drawing, with the module loaded. A line "^[" is Esc.
std::string Play(const std::string& folder, KxPlat::ScriptedUi& ui)
{
    KxPlat::SessionOptions options;
    KxPlat::Session session(options);
    AcApDocument* document = nullptr;
    std::wstring why;
    EXPECT_EQ(KxPlat::OpenDrawing(KxPlat::DrivePath(folder + "/drawing.dxf"), document, why), Acad::eOk)
        << KxPlat::ToUtf8(why);
    EXPECT_EQ(acedArxLoad(KxPlat::DrivePath(KX_BIN "/KxArxBase.arx").c_str()), RTNORM);
    std::istringstream lines(Contents(folder + "/input.txt"));
    for (std::string line; std::getline(lines, line);)
        ui.answers.push_back(line == "^[" ? L"\x1b" : KxPlat::FromUtf8(line));
    ui.TakePrinted();
    session.Loop();
    return KxPlat::ToUtf8(ui.TakePrinted() + L"\n" + ui.complained + ui.boxes);
}

class Transcript : public testing::TestWithParam<std::string> {};

}   // namespace

TEST_P(Transcript, SaysWhatWasRecorded)
{
    const std::string folder = g_folder + "/" + GetParam();
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
