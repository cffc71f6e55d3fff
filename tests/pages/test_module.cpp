#include "tests/pages/test_module.h"

#include "controls/templates.h"
#include "funds/templates.h"
#include "lists/templates.h"
#include "orderentry/templates.h"
#include "session/templates.h"
#include "stops/templates.h"

namespace {

const toolkit::TemplateTable kTables[] = {controls::kTemplates, session::kTemplates,
                                          funds::kTemplates,    orderentry::kTemplates,
                                          stops::kTemplates,    lists::kTemplates};

class PagesApp : public CWinApp {
public:
    PagesApp() : CWinApp("试验") { AfxInitRichEdit2(); }
};

PagesApp app;

}  // namespace

IMPLEMENT_MODULE(app, kTables)

namespace tests {

std::span<const toolkit::TemplateTable> PageTables() { return std::span(kTables).subspan(1); }

PageFrame::PageFrame(int width, int height) {
    CreateEx(0, nullptr, "frame", WS_OVERLAPPEDWINDOW | WS_CLIPCHILDREN, CRect(0, 0, 100, 100),
             nullptr, 0);
    ShowWindow(SW_SHOW);
    Resize(width, height);
}

void PageFrame::Resize(int width, int height) {
    CRect frame;
    CRect client;
    GetWindowRect(&frame);
    GetClientRect(&client);
    SetWindowPos(nullptr, 0, 0, frame.Width() - client.Width() + width,
                 frame.Height() - client.Height() + height, SWP_NOZORDER | SWP_NOMOVE);
}

}  // namespace tests
