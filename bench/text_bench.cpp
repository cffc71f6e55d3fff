#include <benchmark/benchmark.h>
#include <iconv.h>

#include <array>
#include <cstring>
#include <string>
#include <string_view>
#include <vector>

#include "bench/ratio.h"
#include "platform/text/bounded_text.h"
#include "platform/text/gbk.h"

namespace {

constexpr std::string_view kLine =
    "委托成功 Au(T+D) 买 开仓 172944.00 手数 15 保证金 1,234,567.89 元";

/// A converter of the C library that is opened once, as a program in a hurry would keep it.
class Iconv {
public:
    std::string Convert(std::string_view text) {
        std::array<char, 512> buffer{};
        std::vector<char> source(text.begin(), text.end());
        char* in = source.data();
        std::size_t in_left = source.size();
        char* out = buffer.data();
        std::size_t out_left = buffer.size();
        iconv(converter_, &in, &in_left, &out, &out_left);
        return {buffer.data(), buffer.size() - out_left};
    }

private:
    iconv_t converter_ = iconv_open("UTF-8", "GBK");
};

RATIO("text.utf8_from_gbk_over_iconv") {
    static Iconv converter;
    return {[] { benchmark::DoNotOptimize(text::Utf8FromGbk(kLine)); },
            [] { benchmark::DoNotOptimize(converter.Convert(kLine)); }};
}

RATIO("text.bounded_copy_over_memcpy") {
    static std::array<std::array<char, 48>, 280> cells;
    return {[] {
                for (auto& cell : cells) text::CopyText(cell.data(), cell.size(), kLine);
                benchmark::ClobberMemory();
            },
            [] {
                for (auto& cell : cells) {
                    std::memcpy(cell.data(), kLine.data(), cell.size() - 1);
                    cell.back() = '\0';
                    benchmark::ClobberMemory();
                }
            }};
}

}  // namespace
