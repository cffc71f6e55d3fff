#pragma once

#include "platform/toolkit/data_exchange.h"
#include "platform/toolkit/wnd.h"

/// A window made from a template of the current module's tables, modal or not.
///
/// OnOK and OnCancel end a dialog. One that is not modal is only hidden by that, so it overrides
/// both.
class TOOLKIT_API CDialog : public CWnd {
public:
    CDialog() = default;
    explicit CDialog(UINT template_id, CWnd* parent = nullptr)
        : template_id_(template_id), parent_(parent) {}
    ~CDialog() override;

    using CWnd::Create;
    /// Without a parent it is owned by the application's main window. FALSE without such a
    /// template.
    virtual BOOL Create(UINT template_id, CWnd* parent = nullptr);
    /// Shows the dialog, disables the top-level window that owns it and runs a loop until
    /// EndDialog. Answers its result; -1 when there was no dialog, when it was destroyed or on
    /// WM_QUIT, which is passed on to the next loop.
    virtual INT_PTR DoModal();
    void EndDialog(int result);

    /// The next or former control that the Tab key would reach.
    void NextDlgCtrl() const { SendMessage(WM_NEXTDLGCTL, 0, FALSE); }
    void PrevDlgCtrl() const { SendMessage(WM_NEXTDLGCTL, 1, FALSE); }
    void GotoDlgCtrl(CWnd* control);

    /// Keys and clicks work as in a dialog whichever loop runs. An Enter key that is held presses
    /// nothing but once.
    BOOL PreTranslateMessage(MSG* message) override;

protected:
    /// TRUE leaves the focus to the system: the first control that takes it.
    virtual BOOL OnInitDialog();
    virtual void OnOK();
    virtual void OnCancel();
    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override;

    DECLARE_MESSAGE_MAP()

private:
    enum class Kind { kModeless, kModal, kEnded };

    bool CreateFromTable(UINT template_id, HWND parent);
    void RunLoop(const toolkit::CallFrame& frame);
    void EnableOwner();
    static INT_PTR CALLBACK DialogProcedure(HWND handle, UINT message, WPARAM wParam,
                                            LPARAM lParam);

    UINT template_id_ = 0;
    CWnd* parent_ = nullptr;
    Kind kind_ = Kind::kModeless;
    int result_ = -1;
    HWND disabled_owner_ = nullptr;
};

using CDialogEx = CDialog;
