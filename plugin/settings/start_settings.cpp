#include "plugin/settings/start_settings.h"

#include <cstdlib>
#include <iterator>

#include "platform/system.h"
#include "plugin/settings/ini_file.h"
#include "plugin/settings/process_values.h"

namespace {

constexpr char kServerFile[] = ".\\TradeServer_KX_Gold.ini";
// The whole-file reader takes names relative to the current directory, so this is the same file.
constexpr char kMarginFile[] = "TradeServer_KX_Gold.ini";
constexpr char kMarginSection[] = "ContractMargin";

constexpr const char* kProductKeys[MARGIN_PRODUCT_COUNT] = {"Ag(T+D)", "Au(T+D)", "mAu(T+D)",
                                                            "Au100g",  "Au99.99", "Au99.95"};

struct ServerText {
    char text[31];
};

ServerText ReadServerText(const char* key) {
    ServerText value;
    GetPrivateProfileStringA("gtserver", key, "", value.text, sizeof value.text, kServerFile);
    return value;
}

// Deliberate: a missing key makes its factor 0, not the -1 of factors that were never read. Only a
// negative margin sends the pages to their other source of it.
void ReadProductFactors() {
    for (int i = 0; i < MARGIN_PRODUCT_COUNT; ++i) {
        g_dMarginFactor[i] = std::atof(ReadServerText(kProductKeys[i]).text);
    }
}

void ReadContractMargins() {
    const CIniFile file(kMarginFile);
    for (const std::string& contract : file.GetSectionKeys(kMarginSection)) {
        if (g_mapContractMargin.contains(contract)) continue;
        const std::string value = file.GetValue(contract, kMarginSection);
        g_mapContractMargin[contract] = std::atof(value.c_str());
    }
}

void ReadServerSettings() {
    g_mapContractMargin.clear();
    std::fill(std::begin(g_dMarginFactor), std::end(g_dMarginFactor), -1.0);
    g_nUseProfile = std::atoi(ReadServerText("useProfile").text);
    if (g_nUseProfile != 1) return;
    ReadProductFactors();
    ReadContractMargins();
}

}  // namespace

void ReadStartSettings() {
    ReadServerSettings();
    g_bNeedShowStopLossAndProfit = static_cast<int>(GetPrivateProfileIntA(
        "GOLD", "NeedShowStopLossAndProfit", 1, ".\\Cfg\\Trade\\TradeParam.ini"));
}
