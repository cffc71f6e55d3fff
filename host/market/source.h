#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <variant>
#include <vector>

#include "papercore/quote.h"

namespace market {

using Event = std::variant<papercore::Quote, papercore::DayEnd>;

inline papercore::Instant TimeOf(const Event& event) {
    return std::visit([](const auto& what) { return what.time; }, event);
}

/// Prices of a stretch of minutes: of trades and, between them, of quotes.
struct Bar {
    papercore::Instant time = 0;  ///< its begin
    papercore::Price open = 0;
    papercore::Price high = 0;
    papercore::Price low = 0;
    papercore::Price close = 0;
    std::int64_t volume = 0;
};

/// One-minute bars by contract, the newest last.
using History = std::map<std::string, std::vector<Bar>>;

/// Where quotes come from. Its events depend on its own input only, never on who asks and when.
class Source {
public:
    Source() = default;
    Source(const Source&) = delete;
    Source& operator=(const Source&) = delete;
    virtual ~Source() = default;

    /// The next event; times never fall. None: nothing more comes.
    virtual std::optional<Event> Next() = 0;
    /// Where the market's clock stands before the first event.
    virtual papercore::Instant Start() const = 0;
    /// The trading day before the first event, as far as it is known.
    virtual History Before() const { return {}; }
};

/// For quotes that are published by hand.
class ManualSource : public Source {
public:
    explicit ManualSource(papercore::Instant start) : start_(start) {}
    std::optional<Event> Next() override { return std::nullopt; }
    papercore::Instant Start() const override { return start_; }

private:
    papercore::Instant start_;
};

}  // namespace market
