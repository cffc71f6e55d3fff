#include "platform/win32/gdi/face_rules.h"

#include <strings.h>

#include <algorithm>
#include <cmath>
#include <cstring>

namespace winbase {

namespace {

constexpr auto kHalfAndFull = FaceRule::Pitch::kHalfAndFull;
constexpr auto kProportional = FaceRule::Pitch::kProportional;

// The first one serves every name that is not here.
constexpr FaceRule kRules[] = {
    {"宋体", "SimSun", "Noto Sans Mono CJK SC", "Noto Sans Mono CJK SC", 256, 220, 36, 128, 1.0,
     kHalfAndFull},
    {"Arial", nullptr, "Liberation Sans", "Noto Sans CJK SC", 2048, 1854, 434, 904, 1.0,
     kProportional},
    {"Tahoma", nullptr, "DejaVu Sans Condensed", "Noto Sans CJK SC", 2048, 2049, 423, 910, 0.955,
     kProportional},
    {"微软雅黑", "Microsoft YaHei", "Noto Sans CJK SC", "Noto Sans CJK SC", 2048, 2167, 536, 1060,
     0.975, kProportional},
};

constexpr int kUsualHeight = 12;
constexpr int kLargest = 512;

int Share(int amount, int part, int whole) {
    return static_cast<int>(std::lround(static_cast<double>(amount) * part / whole));
}

}  // namespace

const FaceRule& FindFaceRule(const char* name) {
    for (const FaceRule& rule : kRules) {
        if (strcasecmp(name, rule.name) == 0) return rule;
        if (rule.alias && strcasecmp(name, rule.alias) == 0) return rule;
    }
    return kRules[0];
}

FaceSize SizeByRule(const FaceRule& rule, int height, int width) {
    if (height == 0) height = kUsualHeight;
    height = std::clamp(height, -kLargest, kLargest);
    const int cell = rule.ascent + rule.descent;
    FaceSize size;
    if (height > 0) {
        size.em = std::max(1, Share(height, rule.em, cell));
        size.ascent = Share(height, rule.ascent, cell);
        size.descent = height - size.ascent;
    } else {
        size.em = -height;
        size.ascent = Share(size.em, rule.ascent, rule.em);
        size.descent = Share(size.em, rule.descent, rule.em);
    }
    const int usual_width = std::max(1, Share(size.em, rule.average_width, rule.em));
    size.average_width = width == 0 ? usual_width : std::clamp(std::abs(width), 1, kLargest);
    size.em_x = size.em;
    size.half = (size.em + 1) / 2;
    if (width != 0) {
        size.em_x = static_cast<double>(size.average_width) * rule.em / rule.average_width;
        size.half = size.average_width;
    }
    return size;
}

}  // namespace winbase
