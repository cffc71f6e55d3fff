#include "orderentry/soft_key_text.h"

#include <numeric>
#include <random>
#include <vector>

#include "platform/system.h"
#include "platform/text/gbk.h"

namespace orderentry {

std::string WithKey(const std::string& text, char character) {
    return text.size() < kSoftKeyTextMax ? text + character : text;
}

std::string WithoutLastKey(const std::string& text) {
    return text.empty() ? text : text.substr(0, text.size() - 1);
}

std::string WithoutLastCharacter(const std::string& text) {
    return text.empty() ? text : text.substr(0, text::PrefixLength(text, text.size() - 1));
}

void SetSoftKeyText(HWND edit, const std::string& text) {
    ::SetWindowTextA(edit, text.c_str());
    const auto end = static_cast<WPARAM>(::GetWindowTextLengthA(edit));
    ::SendMessageA(edit, EM_SETSEL, end, static_cast<LPARAM>(end));
}

void ShuffleKeys(char first, int count, std::uint32_t& seed, char* out) {
    std::vector<char> left(static_cast<std::size_t>(count));
    std::iota(left.begin(), left.end(), first);
    std::minstd_rand random(seed);
    for (int slot = 0; slot < count; ++slot) {
        const std::size_t index = random() % left.size();
        out[slot] = left[index];
        left.erase(left.begin() + static_cast<std::ptrdiff_t>(index));
    }
    seed = static_cast<std::uint32_t>(random());
}

}  // namespace orderentry
