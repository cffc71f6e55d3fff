#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <limits>
#include <string>
#include <string_view>

#include "orderentry/contract_rules.h"
#include "platform/text/bounded_text.h"
#include "tests/support/front_end/recording_core.h"
#include "tests/support/front_end/recording_host.h"
#include "tests/support/gbk_text.h"

namespace tests {

inline CZebContract MakeContract(std::string_view code, int unit, int digits, double tick) {
    CZebContract contract{};
    text::CopyText(contract.szExchange, "SGE");
    text::CopyText(contract.szContract, code);
    text::CopyText(contract.szMarket, "GT-F");
    contract.nUnit = unit;
    contract.nPriceDigits = digits;
    contract.dPriceTick = tick;
    return contract;
}

inline CZebPosition MakePosition(std::string_view code, char direction, int volume, double open) {
    CZebPosition position{};
    text::CopyText(position.szExchange, "SGE");
    text::CopyText(position.szContract, code);
    position.cDirection = direction;
    position.cHedge = '1';
    position.cDateType = 1;
    position.nVolume = volume;
    position.dOpenPrice = open;
    position.dHoldPrice = open;
    return position;
}

inline PositionGroup MakeLot(int group, std::string_view code, char direction, int volume,
                             double open) {
    PositionGroup lot{};
    lot.nGroupID = group;
    lot.nOrderKind = 1;
    text::CopyText(lot.szExchange, "SGE");
    text::CopyText(lot.szContract, code);
    lot.cDirection = direction;
    lot.cHedge = '1';
    lot.cDateType = 1;
    lot.nVolume = volume;
    lot.dOpenPrice = open;
    return lot;
}

inline JSDyn1 MakeQuote(double last, double pre_close = 0) {
    JSDyn1 quote{};
    quote.dLast = last;
    quote.dPreClose = pre_close;
    return quote;
}

/// A record as it travels.
template <class Record>
std::string_view BytesOf(const Record& record) {
    return {reinterpret_cast<const char*>(&record), sizeof record};
}

/// A core and a host that know Au(T+D), of 1000 units, and Ag99.99, which is a spot contract.
class PositionsStage : public ::testing::Test {
protected:
    PositionsStage() {
        core.contracts = {MakeContract("Au(T+D)", 1000, 2, 0.01),
                          MakeContract("Ag99.99", 15, 0, 1)};
        text::CopyText(core.contracts[1].szMarket, "GT-S");
        text::CopyText(core.login_account.szAccount, "8001");
        for (const CZebContract& contract : core.contracts) CContractManager::AddContract(contract);
    }
    ~PositionsStage() override { CContractManager::ClearContracts(); }

    RecordingCore core;
    RecordingHost host;
    FrontEndDoors doors{core, host};
    const WPARAM kGold = host.AddSymbol("Au(T+D)", 12, 1, 2);
    const WPARAM kSilver = host.AddSymbol("Ag99.99", 12, 3, 0);
};

}  // namespace tests
