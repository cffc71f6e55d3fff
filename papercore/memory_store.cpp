#include <vector>

#include "papercore/store.h"

namespace papercore {
namespace {

class Memory final : public Store {
public:
    std::string Load(State& state) override {
        for (const Fact& fact : facts_) {
            if (!Apply(state, fact)) return "a fact can't follow";
        }
        return {};
    }
    std::string Append(std::span<const Fact> facts) override {
        facts_.insert(facts_.end(), facts.begin(), facts.end());
        return {};
    }
    std::string Export(const std::function<void(std::string_view)>& line) override {
        for (const Fact& fact : facts_) line(FactLine(fact));
        return {};
    }

private:
    std::vector<Fact> facts_;
};

}  // namespace

std::unique_ptr<Store> MemoryStore() { return std::make_unique<Memory>(); }

}  // namespace papercore
