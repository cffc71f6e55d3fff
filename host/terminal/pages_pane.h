#pragma once

#include <functional>

#include "platform/toolkit/toolkit.h"
#include "plugin/contract/base_ui.h"

namespace terminal {

/// The pane that holds the front end's main window, whose left menu it fills and watches.
class PagesPane : public CWnd {
public:
    /// An entry of the left menu.
    struct Entry {
        int page;  ///< script number less 10000001
        const char* name;
        int icon;
    };
    static const std::vector<Entry>& Entries();

    explicit PagesPane(CBaseUI& front_end) : front_end_(front_end) {}

    BOOL CreatePane(CWnd* frame, UINT id);
    /// Makes the front end's main window in the pane. FALSE if it didn't come.
    BOOL CreatePages(HWND frame);
    /// Hides the page on show and shows another; the menu follows. An unknown page is ignored.
    void ShowPage(int page);
    int Page() const { return page_; }
    HWND MainWindow() const { return main_; }
    /// Puts the cursor into the first input of the page on show.
    void FocusOrderPage();
    /// Takes the front end's windows down.
    void DestroyPages();

    /// The user chose an entry.
    std::function<void(int page)> on_page;

protected:
    void OnSize(UINT kind, int width, int height);
    BOOL OnEraseBkgnd(CDC* dc);
    DECLARE_MESSAGE_MAP()

private:
    static LRESULT CALLBACK WatchMain(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
    void FillMenu();
    void OnMenu();
    int IndexOf(int page) const;

    CBaseUI& front_end_;
    HWND main_ = nullptr;
    HWND menu_ = nullptr;
    WNDPROC main_procedure_ = nullptr;
    int page_ = -1;
};

}  // namespace terminal
