#pragma once

#include <string>

#include "tests/papercore/store/mortal.h"

// Lives of a process that trades with an account file. It says what the front end was told:
//
//     order 7 1 0/4     number, status, filled/volume
//     trade 3 of 7 4    number, order, volume
//     answer 7          to the request that became this order
//     done N            the day is over; N operations changed the file

namespace papercore_tests {

/// When the process kills itself: right before or after an operation of the store, from 1.
struct Death {
    int step = 0;  ///< 0: never
    bool after = false;
};

/// A day in which orders are filled, cancelled and left working, and a stop goes off.
void LiveOneDay(const std::string& path, const Death& death, const Mortal::Mouth& mouth);

/// Orders, cancellations, quotes and stops without end, as chance has them.
void LiveUnderLoad(const std::string& path, unsigned seed, const Mortal::Mouth& mouth);

}  // namespace papercore_tests
