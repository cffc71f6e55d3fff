#include "plugin/settings/process_values.h"

int g_nUseProfile = 0;
int g_bNeedShowStopLossAndProfit = 1;
double g_dMarginFactor[MARGIN_PRODUCT_COUNT] = {-1.0, -1.0, -1.0, -1.0, -1.0, -1.0};
std::map<std::string, double> g_mapContractMargin;

HWND g_hParentWnd = nullptr;
HWND g_hFrameWnd = nullptr;

double g_dAvailable = 0;
double g_dEquity = 0;
DWORD g_dwLastActivityTick = 0;

std::string g_strReportChallenge;

COLORREF crPanelBack = 0x292929;
