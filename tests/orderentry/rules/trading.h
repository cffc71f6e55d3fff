#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string_view>

#include "platform/text/bounded_text.h"
#include "tests/support/front_end/recording_core.h"
#include "tests/support/front_end/recording_host.h"
#include "tests/support/gbk_text.h"

namespace tests {

inline CZebContract MakeContract(std::string_view code, std::string_view market, double tick,
                                 int digits) {
    CZebContract contract{};
    text::CopyText(contract.szExchange, "SGE");
    text::CopyText(contract.szContract, code);
    text::CopyText(contract.szMarket, market);
    contract.nUnit = 1000;
    contract.dPriceTick = tick;
    contract.nPriceDigits = digits;
    return contract;
}

/// A record as it travels.
template <class Record>
std::string_view BytesOf(const Record& record) {
    return {reinterpret_cast<const char*>(&record), sizeof record};
}

/// A core and a host with one deferred contract.
class Trading : public ::testing::Test {
protected:
    static constexpr unsigned short kMarket = 12;
    static constexpr unsigned short kCode = 345;

    Trading() {
        symbol.wMarket = kMarket;
        symbol.wCode = kCode;
        text::CopyText(symbol.szCode, "Au(T+D)");
    }

    RecordingCore core;
    RecordingHost host;
    FrontEndDoors doors{core, host};
    CZebContract contract = MakeContract("Au(T+D)", "GT-F", 0.01, 2);
    CHostSymbol symbol{};
    const WPARAM kKey = host.AddSymbol("Au(T+D)", kMarket, kCode, 2);
};

}  // namespace tests
