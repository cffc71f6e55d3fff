#include "host/terminal/remembered.h"

#include <algorithm>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <nlohmann/json.hpp>

namespace terminal {
namespace {

using nlohmann::json;
namespace fs = std::filesystem;

constexpr int kMostPixels = 20000;
constexpr std::size_t kMostColumns = 32;
constexpr std::size_t kMostText = 64;

/// `least` for what is no whole number.
int IntOf(const json& value, int least, int most) {
    if (!value.is_number_integer()) return least;
    if (value.is_number_unsigned() && value.get<std::uint64_t>() > INT32_MAX) return most;
    return static_cast<int>(std::clamp<std::int64_t>(value.get<std::int64_t>(), least, most));
}

void Take(const json& object, const char* key, int& value, int least, int most) {
    const auto found = object.find(key);
    if (found == object.end() || !found->is_number_integer()) return;
    value = IntOf(*found, least, most);
}

void Take(const json& object, const char* key, std::string& value) {
    const auto found = object.find(key);
    if (found == object.end() || !found->is_string()) return;
    const auto& text = found->get_ref<const std::string&>();
    if (text.size() <= kMostText) value = text;
}

void TakeColumns(const json& object, std::vector<int>& widths) {
    const auto columns = object.find("quote_columns");
    if (columns == object.end() || !columns->is_array() || columns->size() > kMostColumns) return;
    widths.clear();
    for (const json& column : *columns) widths.push_back(IntOf(column, 0, kMostPixels));
}

// Nothing of it is copied, however deep a damaged file is.
json ReadObject(const std::string& path, bool& readable) {
    std::ifstream file(path, std::ios::binary);
    readable = true;
    if (!file) return json::object();
    json object = json::parse(file, nullptr, false);
    readable = object.is_object();
    if (!readable) object = json::object();
    return object;
}

}  // namespace

bool ReadRemembered(const std::string& path, Remembered& remembered) {
    bool readable = false;
    const json object = ReadObject(path, readable);
    Take(object, "quotes_width", remembered.sizes.quotes_width, 0, kMostPixels);
    Take(object, "depth_width", remembered.sizes.depth_width, 0, kMostPixels);
    Take(object, "pages_height", remembered.sizes.pages_height, 0, kMostPixels);
    Take(object, "width", remembered.width, 0, kMostPixels);
    Take(object, "height", remembered.height, 0, kMostPixels);
    Take(object, "page", remembered.page, 0, 100);
    Take(object, "chart_period", remembered.chart_period, 0, 60);
    Take(object, "contract", remembered.contract);
    Take(object, "account", remembered.account);
    const auto maximised = object.find("maximised");
    remembered.maximised = maximised != object.end() && *maximised == json(true);
    const auto look = object.find("look");
    if (look != object.end() && *look == json("light")) remembered.look = Look::kLight;
    TakeColumns(object, remembered.quote_columns);
    return readable;
}

bool WriteRemembered(const std::string& path, const Remembered& remembered) {
    std::error_code error;
    bool readable = false;
    ReadObject(path, readable);
    if (!readable) fs::rename(path, path + ".unreadable", error);
    const json object{{"quotes_width", remembered.sizes.quotes_width},
                      {"depth_width", remembered.sizes.depth_width},
                      {"pages_height", remembered.sizes.pages_height},
                      {"width", remembered.width},
                      {"height", remembered.height},
                      {"maximised", remembered.maximised},
                      {"look", remembered.look == Look::kLight ? "light" : "dark"},
                      {"contract", remembered.contract},
                      {"account", remembered.account},
                      {"page", remembered.page},
                      {"chart_period", remembered.chart_period},
                      {"quote_columns", remembered.quote_columns}};
    const std::string draft = path + ".new";
    {
        std::ofstream file(draft, std::ios::binary | std::ios::trunc);
        file << object.dump(4, ' ', false, json::error_handler_t::replace) << '\n';
        file.close();
        if (!file) return false;
    }
    fs::rename(draft, path, error);
    return !error;
}

}  // namespace terminal
