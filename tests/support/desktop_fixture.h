// One test of the built system: a desktop with the loader, sample programs, presets, and nothing left of them behind.
#pragma once

#include "programs/sample_protocol.h"
#include "support/children.h"
#include "support/published.h"
#include "support/registry.h"
#include "support/windows_seen.h"

namespace halyard::test {

// Where this program and all that it tests lie, with a backslash behind.
std::string BinFolder();

struct Sample {
    const Child* program = nullptr;
    HWND window = nullptr;
};

// Presets: the system on, virtual desktops on, the wizard done, desktops 1 "One" and 2 "Two". A failed test leaves a
// picture and a list of windows.
class DesktopTest : public testing::Test {
protected:
    void SetUp() override;
    void TearDown() override;

    // Starts the loader and waits until it is resident, with the hooks in if the presets say so.
    void StartLoader(const std::string& switches = {});
    // Runs the loader with switches, to its end.
    Output Loader(const std::string& switches);
    // Ends it as the user would.
    void QuitLoader();
    const Child* loader = nullptr;
    std::string folder;  // of the loader that is used, with a backslash behind

    // Starts a program of `file` and waits for its window with that title.
    Sample OpenProgram(const std::string& file, const std::string& switches, const std::string& title);
    Sample OpenSample(const std::string& title, const std::string& switches = {}) {
        return OpenProgram(BinFolder() + sample::File, "--inactive --title \"" + title + "\" " + switches, title);
    }
    Sample OpenNotepad();
    // The loader and then a sample, whose window the server knows of.
    Sample StartWithSample(const std::string& title) {
        StartLoader();
        const Sample sample = OpenSample(title);
        EXPECT_TRUE(WindowsBecome(0, 1));
        return sample;
    }
    // Two of its popups, one shown and one not.
    static HWND OpenPopup(const Sample& sample, bool visible) {
        return reinterpret_cast<HWND>(Ask(sample.window, sample::OpenPopup, visible));
    }

    // What is to be seen of the windows of samples and of Notepad, from the top down.
    static std::vector<HWND> SeenWindows();

    // What the window's program has written in answer to a message.
    static std::string ReportOf(const Sample& sample, UINT message) {
        return TextOf(reinterpret_cast<HWND>(Ask(sample.window, message)));
    }

    // A folder of this test's own, with a backslash behind.
    std::string ScratchFolder();
    // Copies a file of the bin folder; returns the copy's path.
    std::string CopyTo(const std::string& targetFolder, const std::string& file, const std::string& name);

    static HWND Server() { return FindWindowA(published::ServerClass, nullptr); }
    // Waits for the server's answer.
    static LRESULT AskServer(UINT message, WPARAM wParam = 0, LPARAM lParam = 0) {
        return Ask(Server(), message, wParam, lParam);
    }
    static void Switch(int id) { AskServer(published::SwitchDesktop, 0, id); }
    static void Assign(HWND window, int id) {
        AskServer(published::WindowAttach, reinterpret_cast<WPARAM>(window), id);
    }
    // How many windows the server has on the desktop.
    static testing::AssertionResult WindowsBecome(int desktop, unsigned count);
    // What the loader's status says behind "NAME: ".
    std::string Status(const std::string& name);

    Children children;
};

}  // namespace halyard::test
