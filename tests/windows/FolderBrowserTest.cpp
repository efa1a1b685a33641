#include <gtest/gtest.h>
#include <windows.h>

#include <objbase.h>

#include <filesystem>
#include <thread>

#include "platform/windows/WindowsDesktop.h"
#include "robot/DialogRobot.h"

namespace {

namespace fs = std::filesystem;

class FolderBrowser : public testing::Test {
  protected:
    FolderBrowser() : root_(fs::temp_directory_path().root_path() / L"veltro Gr\u00FC\u00DFe") {
        fs::create_directories(root_ / L"a=b");
    }
    ~FolderBrowser() override { fs::remove_all(root_); }

    /// What the desktop returns when the user answers so.
    std::wstring choose(std::optional<platform::FolderAnswer> answer) {
        const robot::DialogRobot robot({[](const auto&) { return std::nullopt; },
                                        [](const auto&) { return std::nullopt; },
                                        [this, &answer](const platform::FolderPrompt& prompt) {
                                            titles.push_back(prompt.title);
                                            return answer;
                                        }});
        std::wstring chosen = desktop_.chooseFolder(L"Where do you want it?");
        unanswered = robot.unanswered().has_value();
        return chosen;
    }

    fs::path root_;
    std::vector<std::wstring> titles;
    bool unanswered = false;

  private:
    platform::windows::WindowsDesktop desktop_;
};

TEST_F(FolderBrowser, GivesThePathOfTheChosenFolder) {
    for (const fs::path& folder : {root_, root_ / L"a=b"}) {
        EXPECT_EQ(fs::path(choose(platform::FolderAnswer{folder.wstring()})), folder);
        EXPECT_FALSE(unanswered);
    }
    EXPECT_EQ(titles, std::vector<std::wstring>(2, L"Where do you want it?"));
}

TEST_F(FolderBrowser, GivesNothingWhenTheUserCancels) {
    EXPECT_EQ(choose(platform::FolderAnswer{}), L"");
    EXPECT_FALSE(unanswered);
}

TEST_F(FolderBrowser, IsCancelledWithoutAnAnswerThatCanBeGiven) {
    EXPECT_EQ(choose(std::nullopt), L"");
    EXPECT_TRUE(unanswered);
    EXPECT_EQ(choose(platform::FolderAnswer{(root_ / L"none").wstring()}), L"");
    EXPECT_TRUE(unanswered);
}

TEST_F(FolderBrowser, OpensInAnyApartment) {
    std::wstring chosen;
    std::thread([this, &chosen] {
        CoInitializeEx(nullptr, COINIT_MULTITHREADED);
        chosen = choose(platform::FolderAnswer{root_.wstring()});
        CoUninitialize();
    }).join();
    EXPECT_EQ(fs::path(chosen), root_);
}

}  // namespace
