#pragma once

#include <functional>
#include <memory>
#include <span>
#include <string>
#include <string_view>

#include "papercore/facts.h"

namespace papercore {

/// Where facts are kept, in the order in which they happened.
class Store {
public:
    virtual ~Store() = default;
    /// Reads everything into the state. Empty on success, else a line of UTF-8 that says what is
    /// wrong (a newer version, damage, in use); nothing was written then.
    virtual std::string Load(State& state) = 0;
    /// Keeps facts, all or none; on return they survive a power cut. Empty on success.
    virtual std::string Append(std::span<const Fact> facts) = 0;
    /// Writes the journal as text, a line a fact, through `line`. Empty on success.
    virtual std::string Export(const std::function<void(std::string_view)>& line) = 0;
};

/// What OpenStore says of a file that another program has open.
inline constexpr char kInUse[] = "is in use by another program";

/// An account file (SQLite). The path is UTF-8. Null with `error` set when it can't be used.
std::unique_ptr<Store> OpenStore(const std::string& path, std::string& error);

/// Keeps nothing beyond the process: for tests.
std::unique_ptr<Store> MemoryStore();

/// A fact as one line of UTF-8 text and back; the same line gives the same fact. Bytes that are
/// no text are in hexadecimal. False for a line that is none.
std::string FactLine(const Fact& fact);
bool ReadFactLine(std::string_view line, Fact& fact);

/// The whole state as text, for comparing and for snapshots; reads back to the same state.
std::string StateText(const State& state);
bool ReadStateText(std::string_view text, State& state);

}  // namespace papercore
