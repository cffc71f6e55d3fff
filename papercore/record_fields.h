#pragma once

#include "papercore/facts.h"

// The fields of facts and state, each record's once and by name: for writing, reading and whatever
// else goes through all of them. A visitor is called as f(name, field).

namespace papercore {

template <class F>
void Fields(F& f, Login& x) {
    f("account", x.account);
    f("salt", x.salt);
    f("hash", x.hash);
}
template <class F>
void Fields(F& f, FrozenSlice& x) {
    f("lot", x.lot);
    f("volume", x.volume);
}
template <class F>
void Fields(F& f, Order& x) {
    f("id", x.id);
    f("session", x.session);
    f("day", x.day);
    f("time", x.time);
    f("exchange", x.exchange);
    f("contract", x.contract);
    f("side", x.side);
    f("offset", x.offset);
    f("hedge", x.hedge);
    f("kind", x.kind);
    f("limit", x.limit);
    f("volume", x.volume);
    f("filled", x.filled);
    f("status", x.status);
    f("remark", x.remark);
    f("note", x.note);
    f("source", x.source);
    f("price_code", x.price_code);
    f("tied_lot", x.tied_lot);
    f("opening", x.opening);
    f("closing", x.closing);
    f("frozen_margin", x.frozen_margin);
    f("frozen_fee", x.frozen_fee);
    f("request", x.request);
}
template <class F>
void Fields(F& f, Trade& x) {
    f("id", x.id);
    f("order", x.order);
    f("day", x.day);
    f("time", x.time);
    f("contract", x.contract);
    f("side", x.side);
    f("offset", x.offset);
    f("hedge", x.hedge);
    f("price", x.price);
    f("volume", x.volume);
    f("fee", x.fee);
    f("realised", x.realised);
}
template <class F>
void Fields(F& f, LotStop& x) {
    f("record", x.record);
    f("for_good", x.for_good);
    f("asleep", x.asleep);
    f("float_base", x.float_base);
    f("triggered", x.triggered);
}
template <class F>
void Fields(F& f, Lot& x) {
    f("id", x.id);
    f("exchange", x.exchange);
    f("contract", x.contract);
    f("side", x.side);
    f("hedge", x.hedge);
    f("day", x.day);
    f("session", x.session);
    f("unit", x.unit);
    f("volume", x.volume);
    f("frozen", x.frozen);
    f("open_price", x.open_price);
    f("hold_price", x.hold_price);
    f("margin", x.margin);
    f("has_stop", x.has_stop);
    f("stop", x.stop);
}
template <class F>
void Fields(F& f, Ledger& x) {
    f("deposits", x.deposits);
    f("withdrawals", x.withdrawals);
    f("realised", x.realised);
    f("settled", x.settled);
    f("fees", x.fees);
    f("deferred", x.deferred);
    f("fees_today", x.fees_today);
}
template <class F>
void Fields(F& f, State& x) {
    f("login", x.login);
    f("ledger", x.ledger);
    f("day", x.day);
    f("sessions", x.sessions);
    f("last_order", x.last_order);
    f("last_lot", x.last_lot);
    f("last_trade", x.last_trade);
    f("orders", x.orders);
    f("trades", x.trades);
    f("history", x.history);
    f("lots", x.lots);
    f("presets", x.presets);
    f("settlements", x.settlements);
    f("trade_param", x.trade_param);
    f("trade_param_set", x.trade_param_set);
}
template <class F>
void Fields(F& f, AccountCreated& x) {
    f("login", x.login);
    f("starting_funds", x.starting_funds);
}
template <class F>
void Fields(F& f, PasswordChanged& x) {
    f("salt", x.salt);
    f("hash", x.hash);
}
template <class F>
void Fields(F& f, SessionOpened& x) {
    f("session", x.session);
    f("time", x.time);
}
template <class F>
void Fields(F& f, MoneyMoved& x) {
    f("amount", x.amount);
    f("note", x.note);
}
template <class F>
void Fields(F& f, DayBegun& x) {
    f("day", x.day);
}
template <class F>
void Fields(F& f, OrderAccepted& x) {
    f("order", x.order);
}
template <class F>
void Fields(F& f, OrderEnded& x) {
    f("order", x.order);
    f("status", x.status);
    f("remark", x.remark);
    f("time", x.time);
}
template <class F>
void Fields(F& f, OrderBecameLimit& x) {
    f("order", x.order);
    f("limit", x.limit);
    f("frozen_margin", x.frozen_margin);
    f("frozen_fee", x.frozen_fee);
}
template <class F>
void Fields(F& f, OrderFilled::Closed& x) {
    f("lot", x.lot);
    f("volume", x.volume);
    f("realised", x.realised);
    f("margin_released", x.margin_released);
}
template <class F>
void Fields(F& f, OrderFilled& x) {
    f("trades", x.trades);
    f("closed", x.closed);
    f("opened", x.opened);
    f("order", x.order);
    f("volume", x.volume);
    f("fee", x.fee);
    f("frozen_margin", x.frozen_margin);
    f("frozen_fee", x.frozen_fee);
}
template <class F>
void Fields(F& f, PresetSet& x) {
    f("key", x.key);
    f("record", x.record);
}
template <class F>
void Fields(F& f, LotStopSet& x) {
    f("lot", x.lot);
    f("active", x.active);
    f("stop", x.stop);
}
template <class F>
void Fields(F& f, StopTriggered& x) {
    f("lot", x.lot);
    f("rule", x.rule);
    f("watched", x.watched);
    f("time", x.time);
}
template <class F>
void Fields(F& f, FloatBaseMoved& x) {
    f("lot", x.lot);
    f("base", x.base);
}
template <class F>
void Fields(F& f, StopsWoken& x) {
    f("lots", x.lots);
}
template <class F>
void Fields(F& f, TradeParamSet& x) {
    f("bytes", x.bytes);
}
template <class F>
void Fields(F& f, DaySettled::Marked& x) {
    f("lot", x.lot);
    f("settlement", x.settlement);
    f("profit", x.profit);
    f("deferred", x.deferred);
    f("margin", x.margin);
}
template <class F>
void Fields(F& f, DaySettled& x) {
    f("day", x.day);
    f("next_day", x.next_day);
    f("settlements", x.settlements);
    f("lots", x.lots);
    f("stops_ended", x.stops_ended);
    f("stops_asleep", x.stops_asleep);
}

}  // namespace papercore
