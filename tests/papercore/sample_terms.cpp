#include "tests/papercore/scenario.h"

namespace papercore_tests {
namespace {

constexpr char kFile[] = R"json({
  "version": 1,
  "session_tables": {"all": [{"phase": "continuous", "begin": "20:00", "end": "15:30"}]},
  "contracts": [
    {"contract": "Au(T+D)", "exchange": "SGE", "market": "GT-F", "sessions": "all",
     "unit": 1000, "digits": 2, "tick": 0.01, "smallest_order": 1, "largest_order": 1000,
     "margin_percent": 16, "limit_percent": 15,
     "fee_open_percent": 0.015, "fee_close_percent": 0.015, "fee_close_today_percent": 0.015,
     "deferred_percent": 0.02, "deferred_payer": "long"},
    {"contract": "mAu(T+D)", "exchange": "SGE", "market": "GT-F", "sessions": "all",
     "unit": 100, "digits": 2, "tick": 0.01, "smallest_order": 3, "largest_order": 20,
     "margin_percent": 16, "limit_percent": 15,
     "fee_open_percent": 0.015, "fee_close_percent": 0.015, "fee_close_today_percent": 0.015,
     "deferred_percent": 0.02, "deferred_payer": "long"},
    {"contract": "Ag(T+D)", "exchange": "SGE", "market": "GT-F", "sessions": "all",
     "unit": 1, "digits": 0, "tick": 1, "smallest_order": 1, "largest_order": 1000,
     "limit_percent": 15,
     "fee_open_percent": 0.05, "fee_close_percent": 0.04, "fee_close_today_percent": 0.03,
     "deferred_percent": 0.0175, "deferred_payer": "short",
     "dated": [{"from": "2020-01-01", "margin_percent": 20},
               {"from": "2026-02-01", "margin_percent": 25}]},
    {"contract": "Au99.99", "exchange": "SGE", "market": "GT-S", "sessions": "all",
     "unit": 10, "digits": 2, "tick": 0.01, "smallest_order": 1, "largest_order": 1000,
     "margin_percent": 100, "limit_percent": 30,
     "fee_open_percent": 0.035, "fee_close_percent": 0.035, "fee_close_today_percent": 0.035,
     "deferred_percent": 0, "deferred_payer": "nobody"}
  ]
})json";

}  // namespace

const TermsTable& SampleTerms() {
    static const TermsTable table = [] {
        TermsTable rows;
        EXPECT_EQ("", rows.Parse(kFile));
        return rows;
    }();
    return table;
}

}  // namespace papercore_tests
