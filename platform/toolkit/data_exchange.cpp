#include "platform/toolkit/data_exchange.h"

#include <cassert>

void DDX_Control(CDataExchange* exchange, int id, CWnd& control) {
    if (control.m_hWnd != nullptr) return;
    [[maybe_unused]] const BOOL bound =
        control.SubclassDlgItem(static_cast<UINT>(id), exchange->m_pDlgWnd);
    assert(bound && "the template has a control of this id");
}
