#include "host/terminal/remembered.h"

#include <algorithm>
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

void Take(const json& object, const char* key, int& value, int least, int most) {
    const auto found = object.find(key);
    if (found == object.end() || !found->is_number_integer()) return;
    value = static_cast<int>(std::clamp<std::int64_t>(found->get<std::int64_t>(), least, most));
}

void Take(const json& object, const char* key, std::string& value) {
    const auto found = object.find(key);
    if (found == object.end() || !found->is_string()) return;
    const auto& text = found->get_ref<const std::string&>();
    if (text.size() <= kMostText) value = text;
}

json ReadObject(const std::string& path, bool& readable) {
    std::ifstream file(path, std::ios::binary);
    readable = true;
    if (!file) return json::object();
    json object = json::parse(file, nullptr, false);
    readable = object.is_object();
    return readable ? object : json::object();
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
    remembered.maximised = object.value("maximised", json()) == json(true);
    if (object.value("look", json()) == json("light")) remembered.look = Look::kLight;
    const json columns = object.value("quote_columns", json());
    if (columns.is_array() && columns.size() <= kMostColumns) {
        remembered.quote_columns.clear();
        for (const json& column : columns) {
            const int width = column.is_number_integer() ? column.get<int>() : 0;
            remembered.quote_columns.push_back(std::clamp(width, 0, kMostPixels));
        }
    }
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
