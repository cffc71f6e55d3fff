#include "platform/toolkit/dialog.h"

#include "platform/toolkit/app.h"
#include "platform/toolkit/thread_state.h"

namespace {

HWND ParentHandle(const CWnd* parent) {
    if (parent == nullptr) parent = AfxGetMainWnd();
    return parent != nullptr ? parent->m_hWnd : nullptr;
}

/// Templates may name any class of the system; some must be asked for first.
void InitControlClasses() {
    const INITCOMMONCONTROLSEX controls{sizeof(controls), ICC_TREEVIEW_CLASSES | ICC_TAB_CLASSES |
                                                              ICC_UPDOWN_CLASS | ICC_DATE_CLASSES |
                                                              ICC_STANDARD_CLASSES};
    [[maybe_unused]] static const BOOL done = ::InitCommonControlsEx(&controls);
}

/// Lets a loop look again whether it is still wanted, should the reason have come to it in a sent
/// message while it waited.
void WakeLoop() { ::PostThreadMessageA(::GetCurrentThreadId(), WM_NULL, 0, 0); }

/// Is this an Enter key that is being held, in a control that leaves it to its dialog? Somebody who
/// holds it a moment too long must not press the default button of the dialog that the first press
/// has opened, or the same button twice.
bool IsHeldEnter(const MSG& message) {
    constexpr LPARAM kWasDown = 1 << 30;
    if (message.message != WM_KEYDOWN || message.wParam != VK_RETURN) return false;
    if ((message.lParam & kWasDown) == 0) return false;
    const LRESULT code = ::SendMessageA(message.hwnd, WM_GETDLGCODE, 0, 0);
    return (code & DLGC_WANTALLKEYS) == 0;
}

}  // namespace

BEGIN_MESSAGE_MAP(CDialog, CWnd)
    ON_COMMAND(IDOK, &CDialog::OnOK)
    ON_COMMAND(IDCANCEL, &CDialog::OnCancel)
END_MESSAGE_MAP()

CDialog::~CDialog() {
    if (m_hWnd != nullptr) DestroyWindow();
}

bool CDialog::CreateFromTable(UINT template_id, HWND parent) {
    AFX_MODULE_STATE* module = AfxGetModuleState();
    const toolkit::DialogTemplate* table =
        module != nullptr ? module->FindTemplate(template_id) : nullptr;
    if (table == nullptr) return false;
    InitControlClasses();
    const toolkit::MemoryTemplate memory(*table);
    const toolkit::CreationScope scope(*this);
    return ::CreateDialogIndirectParamA(AfxGetInstanceHandle(), memory.Get(), parent,
                                        DialogProcedure, 0) != nullptr;
}

BOOL CDialog::Create(UINT template_id, CWnd* parent) {
    const toolkit::CallFrame frame(*this);
    template_id_ = template_id;
    parent_ = parent;
    return CreateFromTable(template_id, ParentHandle(parent));
}

INT_PTR CDialog::DoModal() {
    const toolkit::CallFrame frame(*this);
    HWND owner = ParentHandle(parent_);
    if (owner != nullptr) owner = ::GetAncestor(owner, GA_ROOT);
    kind_ = Kind::kModal;
    result_ = -1;
    if (owner != nullptr && ::IsWindowEnabled(owner)) {
        disabled_owner_ = owner;
        ::EnableWindow(owner, FALSE);
    }
    if (CreateFromTable(template_id_, owner)) RunLoop(frame);
    if (!frame.Alive()) return -1;
    const bool destroyed = m_hWnd == nullptr;
    EnableOwner();
    // When the dialog went, its owner could not yet take the activation.
    if (destroyed && owner != nullptr && ::GetActiveWindow() == nullptr) ::SetActiveWindow(owner);
    DestroyWindow();
    kind_ = Kind::kModeless;
    return result_;
}

void CDialog::RunLoop(const toolkit::CallFrame& frame) {
    const auto running = [&] {
        return frame.Alive() && m_hWnd != nullptr && kind_ == Kind::kModal;
    };
    if (running() && (GetStyle() & WS_VISIBLE) == 0) ShowWindow(SW_SHOWNORMAL);
    while (running()) {
        MSG message{};
        if (::GetMessageA(&message, nullptr, 0, 0) <= 0) {
            ::PostQuitMessage(static_cast<int>(message.wParam));
            return;
        }
        toolkit::Dispatch(message);
    }
}

void CDialog::EndDialog(int result) {
    if (kind_ == Kind::kModal) {
        result_ = result;
        kind_ = Kind::kEnded;
        WakeLoop();
    }
    // The owner must be able to take the activation before the dialog gives it up.
    EnableOwner();
    ::EndDialog(m_hWnd, result);
}

void CDialog::EnableOwner() {
    if (disabled_owner_ != nullptr) ::EnableWindow(disabled_owner_, TRUE);
    disabled_owner_ = nullptr;
}

LRESULT CDialog::WindowProc(UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_NCDESTROY && kind_ == Kind::kModal) WakeLoop();
    return CWnd::WindowProc(message, wParam, lParam);
}

INT_PTR CALLBACK CDialog::DialogProcedure(HWND handle, UINT message, WPARAM, LPARAM) {
    if (message != WM_INITDIALOG) return FALSE;
    auto* dialog = dynamic_cast<CDialog*>(FromHandlePermanent(handle));
    if (dialog == nullptr) return FALSE;
    if (dialog->kind_ == Kind::kModal) dialog->CenterWindow();
    return dialog->OnInitDialog();
}

BOOL CDialog::OnInitDialog() {
    UpdateData(FALSE);
    return TRUE;
}

void CDialog::OnOK() {
    if (UpdateData(TRUE)) EndDialog(IDOK);
}

void CDialog::OnCancel() { EndDialog(IDCANCEL); }

void CDialog::GotoDlgCtrl(CWnd* control) {
    SendMessage(WM_NEXTDLGCTL, reinterpret_cast<WPARAM>(control->m_hWnd), TRUE);
}

BOOL CDialog::PreTranslateMessage(MSG* message) {
    const UINT number = message->message;
    const bool key = number >= WM_KEYFIRST && number <= WM_KEYLAST;
    const bool mouse = number >= WM_MOUSEFIRST && number <= WM_MOUSELAST;
    if (IsHeldEnter(*message)) return TRUE;
    return (key || mouse) && ::IsDialogMessageA(m_hWnd, message);
}
