#pragma once

#include <algorithm>
#include <cstddef>
#include <iterator>
#include <memory>
#include <utility>
#include <vector>

namespace papercore {

/// Records whose copies share what is equal: a copy that changes a record pays for a few around it,
/// not for the list. So every event can leave a list of its own.
template <class Record>
class RecordList {
public:
    RecordList() = default;
    explicit RecordList(const std::vector<Record>& records) {
        for (const Record& record : records) Add(record);
    }

    std::size_t size() const { return size_; }
    bool empty() const { return size_ == 0; }
    const Record& operator[](std::size_t index) const {
        return (*blocks_[index / kBlock])[index % kBlock];
    }

    void Add(const Record& record) {
        auto block = std::make_shared<Block>();
        block->reserve(kBlock);
        if (size_ % kBlock == 0) {
            blocks_.emplace_back();
        } else {
            *block = *blocks_.back();
        }
        block->push_back(record);
        blocks_.back() = std::move(block);
        ++size_;
    }
    void Set(std::size_t index, const Record& record) {
        auto block = std::make_shared<Block>(*blocks_[index / kBlock]);
        (*block)[index % kBlock] = record;
        blocks_[index / kBlock] = std::move(block);
    }
    /// The first records.
    void CopyTo(Record* buffer, std::size_t count) const {
        for (const auto& block : blocks_) {
            const std::size_t part = std::min(count, block->size());
            buffer = std::copy_n(block->begin(), part, buffer);
            count -= part;
        }
    }

    class Iterator {
    public:
        using iterator_category = std::forward_iterator_tag;
        using value_type = Record;
        using difference_type = std::ptrdiff_t;
        using pointer = const Record*;
        using reference = const Record&;

        Iterator() = default;
        Iterator(const RecordList* list, std::size_t index) : list_(list), index_(index) {}
        reference operator*() const { return (*list_)[index_]; }
        pointer operator->() const { return &**this; }
        Iterator& operator++() {
            ++index_;
            return *this;
        }
        Iterator operator++(int) {
            Iterator before = *this;
            ++index_;
            return before;
        }
        friend bool operator==(const Iterator&, const Iterator&) = default;

    private:
        const RecordList* list_ = nullptr;
        std::size_t index_ = 0;
    };
    Iterator begin() const { return {this, 0}; }
    Iterator end() const { return {this, size_}; }

private:
    static constexpr std::size_t kBlock = 16;
    using Block = std::vector<Record>;

    std::vector<std::shared_ptr<const Block>> blocks_;  ///< all full but the last
    std::size_t size_ = 0;
};

}  // namespace papercore
