#include "lists/export_trade_rules.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <memory>
#include <string_view>
#include <vector>

#include "lists/trade_cell_rules.h"
#include "orderentry/contract_rules.h"
#include "platform/text/bounded_text.h"

namespace {

char WithoutSeparator(char byte) { return byte == ',' || byte == '\n' ? ' ' : byte; }

/// Is one of the word's bytes equal to `byte`? Their difference is 0 then, and a 0 borrows.
template <class Word>
constexpr bool HasByte(Word word, char byte) {
    constexpr Word kOnes = static_cast<Word>(~Word{0}) / 0xFF;
    const Word rest = word ^ (kOnes * static_cast<unsigned char>(byte));
    return ((rest - kOnes) & ~rest & (kOnes << 7)) != 0;
}

/// Copies the bytes of a word with blanks for separators; nearly all have none.
template <class Word>
void CopyWord(const char* from, char* to) {
    Word word = 0;
    std::memcpy(&word, from, sizeof word);
    std::memcpy(to, &word, sizeof word);
    if (HasByte(word, ',') || HasByte(word, '\n')) {
        std::transform(to, to + sizeof word, to, WithoutSeparator);
    }
}

/// Copies a text that is as long as a word or longer; what is left for the last one overlaps.
template <class Word>
char* CopyWords(std::string_view text, char* to) {
    const char* const last = text.data() + text.size() - sizeof(Word);
    char* const last_to = to + text.size() - sizeof(Word);
    for (const char* from = text.data(); from < last; from += sizeof(Word), to += sizeof(Word)) {
        CopyWord<Word>(from, to);
    }
    CopyWord<Word>(last, last_to);
    return last_to + sizeof(Word);
}

/// Copies with blanks for separators and answers where the copy ends.
char* CopyWithoutSeparators(std::string_view text, char* to) {
    if (text.size() >= sizeof(std::uint64_t)) return CopyWords<std::uint64_t>(text, to);
    if (text.size() >= sizeof(std::uint32_t)) return CopyWords<std::uint32_t>(text, to);
    return std::transform(text.begin(), text.end(), to, WithoutSeparator);
}

/// The contracts of the trades so far; there are few of them.
class ContractsOfTrades {
public:
    explicit ContractsOfTrades(const ContractSource* source) : source_(source) {}

    const CZebContract* operator()(const CZebTrade& trade) {
        if (source_ == nullptr) return nullptr;
        const std::string_view code = text::FieldText(trade.szContract);
        for (const Known& known : known_) {
            if (known.code == code) return known.contract;
        }
        known_.push_back({std::string(code), nullptr});
        known_.back().contract = source_->FindContractByCode(known_.back().code.c_str());
        return known_.back().contract;
    }

private:
    struct Known {
        std::string code;
        const CZebContract* contract;
    };

    const ContractSource* source_;
    std::vector<Known> known_;
};

/// Collects cells and hands them on in blocks: few enough calls of the system, and still in the
/// processor's cache.
class CellWriter {
public:
    explicit CellWriter(const ExportSink& sink) : sink_(sink) {}

    void Cell(std::string_view text) {
        PutText(text);
        Put(',');
    }
    /// Between tabs a spreadsheet takes a number for a text and keeps all its digits.
    void TabbedCell(std::string_view text) {
        Put('\t');
        PutText(text);
        Put('\t');
        Put(',');
    }
    void EndLine() { Put('\n'); }
    /// Answers whether the sink has taken all.
    bool End() {
        Flush();
        return taken_;
    }

private:
    static constexpr std::size_t kBlock = 256 * 1024;

    void Put(char byte) {
        if (end_ == buffer_.get() + kBlock) Flush();
        *end_++ = byte;
    }
    void PutText(std::string_view text) {
        for (std::size_t room = Room(); text.size() > room; room = Room()) {
            PutText(text.substr(0, room));
            text.remove_prefix(room);
            Flush();
        }
        end_ = CopyWithoutSeparators(text, end_);
    }
    std::size_t Room() const { return static_cast<std::size_t>(buffer_.get() + kBlock - end_); }
    void Flush() {
        taken_ = taken_ && sink_({buffer_.get(), static_cast<std::size_t>(end_ - buffer_.get())});
        end_ = buffer_.get();
    }

    const ExportSink& sink_;
    bool taken_ = true;
    std::unique_ptr<char[]> buffer_ = std::make_unique_for_overwrite<char[]>(kBlock);
    char* end_ = buffer_.get();
};

/// Has the processor fetch a record whose turn comes soon: the records lie far apart.
void Prefetch(const CZebTrade& trade) {
    constexpr std::size_t kCacheLine = 64;
    const auto* const bytes = reinterpret_cast<const char*>(&trade);
    for (std::size_t at = 0; at < offsetof(CZebTrade, reserved320); at += kCacheLine) {
        __builtin_prefetch(bytes + at);
    }
}

void WriteTrade(CellWriter& line, const CZebTrade& trade, int columns,
                const CZebContract* contract) {
    TradeTextRoom room;
    for (int column = 0; column < columns; ++column) {
        const std::string_view text = TradeText(trade, column, contract, room);
        if (column == kTradeNumberColumn) {
            line.TabbedCell(text);
        } else {
            line.Cell(text);
        }
    }
    line.EndLine();
}

}  // namespace

std::string ExportName(int year, int month, int day) {
    char name[64];
    text::FormatText(name, sizeof name, "%d年%d月%d日黄金成交报表.csv", year, month, day);
    return name;
}

bool WriteTradeExport(std::span<const char* const> titles, std::span<const CZebTrade> trades,
                      const ContractSource* contracts, const ExportSink& sink) {
    constexpr std::size_t kAhead = 12;
    CellWriter line(sink);
    for (const char* const title : titles) line.Cell(title);
    line.EndLine();
    ContractsOfTrades contract_of(contracts);
    for (std::size_t i = 0; i < trades.size(); ++i) {
        if (i + kAhead < trades.size()) Prefetch(trades[i + kAhead]);
        WriteTrade(line, trades[i], static_cast<int>(titles.size()), contract_of(trades[i]));
    }
    return line.End();
}
