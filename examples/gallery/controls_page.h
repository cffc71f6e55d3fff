#pragma once

#include "platform/toolkit/toolkit.h"

namespace gallery {

/// The standard controls side by side, each in its states, and the buttons that open dialogs.
class ControlsPage : public CDialog {
public:
    BOOL CreatePage(CWnd* parent);

protected:
    BOOL OnInitDialog() override;
    void OnOK() override {}
    void OnCancel() override {}

    void OnOpenAsk();
    void OnOpenBox();
    void OnOpenQuestion();
    void OnOpenSave();
    void OnOpenPopup();
    void OnSpin(NMHDR* header, LRESULT* result);
    void OnPick();
    DECLARE_MESSAGE_MAP()

private:
    void FillTexts();
    void FillLists();
    void FillTree();
    HTREEITEM AddNode(HTREEITEM parent, const char* text);
    void ShowStatus(const char* text);

    CWnd popup_;
    CFont font_;
};

}  // namespace gallery
