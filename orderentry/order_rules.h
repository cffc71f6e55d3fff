#pragma once

#include <string>

#include "plugin/contract/market_records.h"
#include "plugin/contract/order_records.h"
#include "plugin/contract/parameter_records.h"

// From what a page shows to the request that goes to the core.

enum class OrderRefusal {
    kNone,
    kNoContract,  ///< or one that the host does not know
    kNoVolume,
    kNoPrice,  ///< or one that cannot be told in the request
};

/// What the user entered, as plain values. Texts may be null.
struct OrderTicket {
    const CZebContract* contract;  ///< null for none
    CHostSymbol symbol;            ///< as the page keeps it; empty if the host does not know it
    const char* volume_text;
    const char* price_text;
    char direction;
    char offset;
    bool net;  ///< the core opens or closes by the net position
    int linked_position;
};

/// An order ready to be confirmed and sent. What is confirmed is what is sent, so nothing of it is
/// read from the page again.
struct PreparedOrder {
    OrderRefusal refusal = OrderRefusal::kNone;  ///< if there is one, nothing else counts
    std::string price_text;                      ///< as entered, for the refusal
    CInsertOrderRequest request{};
    CTradeParam param{};
    unsigned char price_type = 0;
    int source = 0;
};

/// Of the order page: checks contract, volume and price in this order, the price resolved now.
PreparedOrder PrepareOrder(const OrderTicket& ticket);
/// Of a panel: the price of its text moved by some money. Unmoved, the text itself goes into the
/// request, be it a word or a number.
PreparedOrder PreparePanelOrder(const OrderTicket& ticket, double price_offset);

/// What the user is told; empty without a refusal.
std::string RefusalText(const PreparedOrder& order);

/// Puts a printed price into a request. False, and no text, if it cannot be used or does not fit:
/// a price is never cut.
bool SetOrderPrice(CInsertOrderRequest& request, double price, int digits);
