// One window with every control in every state: the layer's smoke test and its documentation.
//
//     gallery [--scale N] [--shots FOLDER | --texts FILE | --random STEPS [--seed N] |
//     --first-frame]

#include <cstdio>
#include <cstdlib>
#include <string>

#include "examples/gallery/gallery_core.h"
#include "examples/gallery/gallery_frame.h"
#include "examples/gallery/random_input.h"
#include "examples/gallery/shots.h"
#include "examples/gallery/templates.h"
#include "platform/start.h"
#include "platform/testing/input.h"
#include "platform/testing/sight.h"
#include "plugin/contract/core_access.h"

namespace {

class GalleryApp : public CWinApp {
public:
    std::string shots;
    std::string texts;
    bool first_frame = false;
    long random_steps = 0;
    unsigned seed = 1;

    /// Nobody is there: the gallery does its work without a display and ends.
    bool Automatic() const {
        return first_frame || random_steps > 0 || !shots.empty() || !texts.empty();
    }

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
        if (Automatic()) {
            platform::testing::Pump();
            if (!shots.empty()) failed_ = !gallery::TakeShots(frame_, shots);
            if (!texts.empty()) failed_ = !gallery::WriteTexts(frame_, texts);
            if (random_steps == 0) frame_.DestroyWindow();
        }
        gallery::RandomInput random(random_steps, seed);
        if (random_steps > 0) {
            frame_.StayOpen();
            random.Start();
        }
        const int result = CWinApp::Run();
        if (frame_.GetSafeHwnd() != nullptr) frame_.DestroyWindow();
        return result;
    }

private:
    gallery::GalleryFrame frame_;
    bool failed_ = false;
};

GalleryApp g_app;

int Usage() {
    std::fputs(
        "usage: gallery [--scale 1|2|3] [--shots FOLDER | --texts FILE | --first-frame |\n"
        "                --random STEPS [--seed N]]\n",
        stderr);
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
        } else if (argument == "--texts" && has_value) {
            g_app.texts = argv[++index];
            platform::testing::RememberTexts();
        } else if (argument == "--random" && has_value) {
            g_app.random_steps = std::atol(argv[++index]);
        } else if (argument == "--seed" && has_value) {
            g_app.seed = static_cast<unsigned>(std::atol(argv[++index]));
        } else if (argument == "--first-frame") {
            g_app.first_frame = true;
        } else {
            return Usage();
        }
    }
    if (g_app.Automatic()) options.display = platform::Display::kHeadless;
    platform::Start(options);
    gallery::GalleryCore core(options.scale);
    g_pUICallBack = &core;
    return AfxWinMain(GetModuleHandleA(nullptr), nullptr, nullptr, SW_SHOW);
}
