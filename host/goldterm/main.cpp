// goldterm: a terminal for spot gold contracts with a paper account.

#include <cstdio>
#include <filesystem>
#include <iostream>
#include <memory>
#include <string>

#include "controls/templates.h"
#include "host/goldterm/terminal.h"
#include "host/terminal/templates.h"
#include "platform/start.h"
#include "platform/testing/input.h"

namespace {

constexpr int kBroken = 2;

class GoldtermApp : public CWinApp {
public:
    GoldtermApp() : CWinApp("goldterm") {}

    terminal::Terminal* terminal = nullptr;
    bool first_frame = false;

    BOOL InitInstance() override {
        AfxInitRichEdit2();
        if (!terminal->Show()) {
            std::fputs("goldterm: the window could not be made\n", stderr);
            return FALSE;
        }
        m_pMainWnd = terminal->frame();
        return TRUE;
    }

    int Run() override {
        if (first_frame) {
            platform::testing::Pump();
            terminal->frame()->PostMessage(WM_CLOSE);
        }
        return CWinApp::Run();
    }

    int ExitInstance() override {
        m_pMainWnd = nullptr;
        terminal->Close();
        return CWinApp::ExitInstance();
    }

    BOOL PreTranslateMessage(MSG* message) override {
        return terminal->Translate(*message) || CWinApp::PreTranslateMessage(message);
    }
};

GoldtermApp g_app;

}  // namespace

namespace {
const toolkit::TemplateTable kTables[] = {controls::kTemplates, terminal::kTemplates};
}  // namespace

IMPLEMENT_MODULE(g_app, kTables)

int main(int argc, char** argv) {
    terminal::Options options;
    int exit_code = 0;
    std::string message;
    if (!terminal::ParseOptions(argc, argv, options, exit_code, message)) {
        std::fprintf(exit_code == 0 ? stdout : stderr, "%s\n", message.c_str());
        return exit_code;
    }
    platform::StartOptions start;
    const bool windowless = options.headless || options.first_frame;
    start.display = windowless ? platform::Display::kHeadless : platform::Display::kWindow;
    if (options.manual_clock) start.clock = platform::Clock::kManual;
    start.scale = options.scale;
    start.width = options.width;
    start.height = options.height;
    if (!platform::Start(start)) {
        std::fprintf(stderr, "goldterm: there is no display here; --headless runs without one\n");
        return kBroken;
    }
    terminal::Terminal terminal(options);
    const std::string fault = terminal.Open();
    if (!fault.empty()) {
        std::fprintf(stderr, "goldterm: %s\n", fault.c_str());
        return kBroken;
    }
    g_app.terminal = &terminal;
    g_app.first_frame = options.first_frame;
    return AfxWinMain(GetModuleHandleA(nullptr), nullptr, nullptr, SW_SHOW);
}
