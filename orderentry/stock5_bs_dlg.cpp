#include "orderentry/stock5_bs_dlg.h"

void CStock5BSDlg::OnQuote(unsigned int, const JSDyn1&) {}
