#pragma once

#include "platform/toolkit/toolkit.h"

/// An edit between a minus and a plus button, made in place of a control of the template.
class CPriceEditEx : public CDialog {
public:
    static constexpr UINT IDD = 10106;
    static constexpr int kMinus = 10008;
    static constexpr int kPlus = 10009;

    /// The ids by which it reports to its parent.
    CPriceEditEx(int edit_id, int spin_id) : m_nEditId(edit_id), m_nSpinId(spin_id) {}

protected:
    void OnOK() override {}
    void OnCancel() override {}

private:
    int m_nEditId;
    int m_nSpinId;
};
