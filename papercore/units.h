#pragma once

#include <cstdint>

// Units of the paper account: whole numbers everywhere, so that sums are exact.

namespace papercore {

/// Money in hundredths of a yuan.
using Fen = std::int64_t;

/// A price in ten-thousandths of a yuan per price unit (gram or kilogram). 0: no price.
using Price = std::int64_t;
inline constexpr Price kPriceScale = 10000;
/// What lies beyond is no price: values of positions stay far from the end of the numbers.
inline constexpr Price kHighestPrice = 1'000'000 * kPriceScale;

/// A rate in millionths: 0.08 % is 800.
using Ppm = std::int64_t;

/// Market time: milliseconds since 1970-01-01 00:00 of the market's own civil time.
using Instant = std::int64_t;

/// A day as YYYYMMDD.
using Day = int;

/// Rising from 1; 0 is none. Unique across sessions.
using OrderId = std::int32_t;
using LotId = std::int32_t;
using TradeId = std::int64_t;

enum class Side : std::uint8_t { kBuy, kSell };

constexpr Side Opposite(Side side) { return side == Side::kBuy ? Side::kSell : Side::kBuy; }

/// A yuan amount of a record or a file, rounded half away from zero; saturates, NaN gives 0.
Fen FenFromYuan(double yuan);
double YuanFromFen(Fen fen);
Price PriceFromYuan(double yuan);
double YuanFromPrice(Price price);

/// Value of `volume` lots of `unit` price units each at a price, rounded half up to a Fen.
/// Saturates instead of wrapping.
Fen Turnover(Price price, int unit, std::int64_t volume);

/// `amount * rate / 10^6`, rounded half up to a Fen, saturating.
Fen Share(Fen amount, Ppm rate);

}  // namespace papercore
