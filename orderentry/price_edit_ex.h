#pragma once

#include <memory>

#include "controls/bmp_button.h"
#include "platform/toolkit/toolkit.h"

/// An edit between a minus and a plus button, made in place of a control of the template. To its
/// page it looks like an edit and an up-down control: changes of the text come as EN_CHANGE, the
/// buttons as UDN_DELTAPOS, under the two ids that it was given.
class CPriceEditEx : public CDialog {
public:
    static constexpr UINT IDD = 10106;
    static constexpr int kMinus = 10008;
    static constexpr int kPlus = 10009;
    /// What a page reads of the text, in bytes. Nobody can enter more, so nothing that is seen is
    /// left out of an order.
    static constexpr int kTextMax = 31;

    CPriceEditEx(int edit_id, int spin_id) : m_nEditId(edit_id), m_nSpinId(spin_id) {}
    ~CPriceEditEx() override;

    /// Makes it where the page's control stands, behind that in the order of siblings: looking up
    /// the id still finds the control of the template. False if that control is not there.
    bool CreateOver(CWnd& page, int place_holder);
    /// Null before creation.
    CWnd* InnerEdit() const { return m_pEdit.get(); }
    /// As if a button were clicked: plus for a positive direction, else minus.
    void Step(int direction);

    /// Makes the edit and answers it, bound to a window of its own.
    virtual std::unique_ptr<CWnd> CreateInnerEdit(int id) = 0;
    /// The edit stands at `y` now.
    virtual void OnLayout(int y);
    /// A press at a place of the screen.
    virtual void OnClickOutside(int x, int y);

    /// Keys belong to the page's dialog handling: Tab goes through the composite, not round in it.
    BOOL PreTranslateMessage(MSG* message) override;

protected:
    BOOL OnInitDialog() override;
    void OnOK() override {}
    void OnCancel() override {}
    BOOL OnCommand(WPARAM wParam, LPARAM lParam) override;
    void EnableButtons();
    int EditId() const { return m_nEditId; }
    COLORREF BackColor() const { return m_crBack; }

    void OnSize(UINT type, int cx, int cy);
    BOOL OnEraseBkgnd(CDC* dc);
    DECLARE_MESSAGE_MAP()

private:
    void MakeButton(CBmpButton& button, int id, int skin_index);
    void LayOut(int width, int height);
    void NotifyStep(int delta);
    void TellPage(int code);

    std::unique_ptr<CWnd> m_pEdit;
    CBmpButton m_btnMinus;
    CBmpButton m_btnPlus;
    CSpinButtonCtrl m_spin;  ///< never shown; the notifications come in its name
    int m_nEditId;
    int m_nSpinId;
    int m_nTextHeight = 0;
    COLORREF m_crBack = 0xF1F6F9;
    COLORREF m_crFrame = 0xDED2CC;
    CFont m_font;
};

namespace orderentry {

/// The up and down keys in an edit of a composite press its buttons. False for other keys and for
/// an edit that stands alone.
bool StepByKey(const CWnd& edit, UINT key);

}  // namespace orderentry
