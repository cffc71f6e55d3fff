#include "tests/papercore/scenario.h"

namespace papercore_tests {
namespace {

ContractTerms Gold() {
    ContractTerms terms;
    terms.exchange = "SGE";
    terms.contract = kGold;
    terms.market = "GT-F";
    terms.unit = 1000;
    terms.tick = 100;
    terms.digits = 2;
    terms.margin = 160'000;
    terms.limit = 150'000;
    terms.fee_open = terms.fee_close = terms.fee_close_today = 150;
    terms.deferred = 200;
    terms.deferred_direction = DeferredDirection::kLongPays;
    terms.largest_order = 1000;
    return terms;
}

ContractTerms Silver() {
    ContractTerms terms = Gold();
    terms.contract = kSilver;
    terms.unit = 1;
    terms.tick = 10'000;
    terms.digits = 0;
    terms.margin = 200'000;
    terms.fee_open = 500;
    terms.fee_close = 400;
    terms.fee_close_today = 300;
    terms.deferred = 175;
    terms.deferred_direction = DeferredDirection::kShortPays;
    return terms;
}

ContractTerms DearerSilver() {
    ContractTerms terms = Silver();
    terms.from = 20260201;
    terms.margin = 250'000;
    return terms;
}

ContractTerms Spot() {
    ContractTerms terms = Gold();
    terms.contract = kSpot;
    terms.market = "GT-S";
    terms.unit = 10;
    terms.margin = 1'000'000;
    terms.limit = 300'000;
    terms.fee_open = terms.fee_close = terms.fee_close_today = 350;
    terms.deferred = 0;
    terms.deferred_direction = DeferredDirection::kNobodyPays;
    return terms;
}

ContractTerms Mini() {
    ContractTerms terms = Gold();
    terms.contract = kMini;
    terms.unit = 100;
    terms.smallest_order = 3;
    terms.largest_order = 20;
    return terms;
}

}  // namespace

const TermsTable& SampleTerms() {
    static const TermsTable table = [] {
        TermsTable rows;
        for (const ContractTerms& row : {Gold(), Silver(), DearerSilver(), Spot(), Mini()}) {
            rows.Add(row);
        }
        return rows;
    }();
    return table;
}

}  // namespace papercore_tests
