#pragma once

#include <cstdint>
#include <vector>

#include "papercore/quote.h"

namespace market {

/// Numbers from a seed: the same on every machine.
class Random {
public:
    explicit Random(std::uint64_t seed) : state_(seed) {}
    double Uniform();  ///< from 0, below 1
    double Bell();     ///< around 0, with a deviation of 1
    int Whole(int least, int most);

private:
    std::uint64_t state_;
};

/// A made up book. It follows a middle; what stands in it stays, a few sizes change at a time.
class MadeBook {
public:
    struct Prices {
        papercore::Price middle = 0;
        papercore::Price tick = 0;
        papercore::Price lower_limit = 0;
        papercore::Price upper_limit = 0;
    };

    void Clear();
    /// Bids end up at the middle or below, asks above it. A side locked at its limit is empty.
    void Follow(const Prices& prices, Random& random);
    /// Takes from the best level of a side; answers what was taken at which price.
    papercore::Level Take(papercore::Side from, std::int64_t volume);
    void Show(papercore::Quote& quote) const;

private:
    using Levels = std::vector<papercore::Level>;  ///< best first; more than are shown

    static void Join(Levels& levels, papercore::Price best, papercore::Price away,
                     papercore::Price last, Random& random);
    static void ChangeSize(Levels& levels, Random& random);

    Levels bids_;
    Levels asks_;
};

}  // namespace market
