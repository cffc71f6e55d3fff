// One window with every control in every state: the layer's smoke test and its documentation.
//
//     gallery [--scale N] [--shots FOLDER | --first-frame]

#include <cstdio>
#include <cstdlib>
#include <string>

#include "examples/gallery/gallery_frame.h"
#include "examples/gallery/shots.h"
#include "examples/gallery/templates.h"
#include "platform/start.h"
#include "platform/testing/input.h"

namespace {

class GalleryApp : public CWinApp {
public:
    std::string shots;
    bool first_frame = false;

    BOOL InitInstance() override {
        AfxInitRichEdit2();
        if (!frame_.CreateFrame()) return FALSE;
        m_pMainWnd = &frame_;
        frame_.ShowWindow(SW_SHOW);
        frame_.UpdateWindow();
        return TRUE;
    }

    int ExitInstance() override {
        const int result = CWinApp::ExitInstance();
        return failed_ ? 1 : result;
    }

    int Run() override {
        if (first_frame || !shots.empty()) {
            platform::testing::Pump();
            if (!shots.empty()) failed_ = !gallery::TakeShots(frame_, shots);
            frame_.DestroyWindow();
        }
        return CWinApp::Run();
    }

private:
    gallery::GalleryFrame frame_;
    bool failed_ = false;
};

GalleryApp g_app;

int Usage() {
    std::fputs("usage: gallery [--scale 1|2|3] [--shots FOLDER | --first-frame]\n", stderr);
    return 2;
}

}  // namespace

IMPLEMENT_MODULE(g_app, gallery::kTables)

int main(int argc, char** argv) {
    platform::StartOptions options;
    for (int index = 1; index < argc; ++index) {
        const std::string argument = argv[index];
        const bool has_value = index + 1 < argc;
        if (argument == "--scale" && has_value) {
            options.scale = std::atoi(argv[++index]);
        } else if (argument == "--shots" && has_value) {
            g_app.shots = argv[++index];
        } else if (argument == "--first-frame") {
            g_app.first_frame = true;
        } else {
            return Usage();
        }
    }
    if (g_app.first_frame || !g_app.shots.empty()) options.display = platform::Display::kHeadless;
    platform::Start(options);
    return AfxWinMain(GetModuleHandleA(nullptr), nullptr, nullptr, SW_SHOW);
}
