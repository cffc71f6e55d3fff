#include "papercore/positions.h"

#include <map>
#include <utility>

namespace papercore {
namespace {

void AddLot(Position& position, const Lot& lot, Day today) {
    if (position.volume == 0) {
        position.exchange = lot.exchange;
        position.contract = lot.contract;
        position.side = lot.side;
        position.hedge = lot.hedge;
        position.session = lot.session;
    }
    const auto lots = static_cast<double>(lot.volume);
    position.volume += lot.volume;
    position.frozen += lot.frozen;
    if (lot.day == today) position.today += lot.volume;
    position.open_price += YuanFromPrice(lot.open_price) * lots;
    position.hold_price += YuanFromPrice(lot.hold_price) * lots;
    position.margin += lot.margin;
}

}  // namespace

std::vector<Position> Positions(const State& state) {
    std::map<std::pair<std::string, Side>, Position> sums;
    for (const auto& [id, lot] : state.lots) {
        AddLot(sums[{lot.contract, lot.side}], lot, state.day);
    }
    std::vector<Position> positions;
    for (auto& [key, position] : sums) {
        position.open_price /= static_cast<double>(position.volume);
        position.hold_price /= static_cast<double>(position.volume);
        positions.push_back(std::move(position));
    }
    return positions;
}

}  // namespace papercore
