#include "host/skin/menu_icons.h"

#include <array>
#include <span>
#include <vector>

namespace skin {

namespace {

enum class Shape {
    kLines,  ///< x, y of each corner
    kBox,    ///< left, top, width, height of the frame's outside
    kBar,    ///< left, top, width, height
    kArc,    ///< x, y, radius, from, to (degrees)
    kDot,    ///< x, y, radius
};

enum class Ink { kMain, kAccent };

constexpr std::size_t kMostNumbers = 16;

struct Mark {
    template <class... Numbers>
    constexpr Mark(Shape of, Ink in, Numbers... list)
        : shape(of), ink(in), numbers{static_cast<double>(list)...}, count(sizeof...(list)) {
        static_assert(sizeof...(list) <= kMostNumbers);
    }

    Shape shape;
    Ink ink;
    std::array<double, kMostNumbers> numbers;
    std::size_t count;
};

constexpr auto kLines = Shape::kLines;
constexpr auto kBox = Shape::kBox;
constexpr auto kBar = Shape::kBar;
constexpr auto kArc = Shape::kArc;
constexpr auto kDot = Shape::kDot;
constexpr auto kInk = Ink::kMain;
constexpr auto kHot = Ink::kAccent;

// Straight strokes run through the middles of pixels and are sharp.
constexpr Mark kOrders[] = {{kBox, kInk, 3, 1, 10, 14},
                            {kLines, kInk, 5.5, 4.5, 10.5, 4.5},
                            {kLines, kInk, 5.5, 7.5, 10.5, 7.5},
                            {kLines, kHot, 5.5, 10.5, 8.5, 10.5}};
constexpr Mark kPositions[] = {{kLines, kHot, 8, 1.5, 14, 4.75, 8, 8, 2, 4.75, 8, 1.5},
                               {kLines, kInk, 2, 8, 8, 11.25, 14, 8},
                               {kLines, kInk, 2, 11.25, 8, 14.5, 14, 11.25}};
constexpr Mark kTrades[] = {{kBox, kInk, 3, 1, 10, 14},
                            {kLines, kInk, 5.5, 4.5, 10.5, 4.5},
                            {kLines, kHot, 5.25, 9, 7.25, 11.25, 10.75, 7.25}};
constexpr Mark kFunds[] = {{kArc, kInk, 7.5, 7.5, 6, 0, 360},
                           {kLines, kHot, 4.75, 3.75, 7.5, 7, 10.25, 3.75},
                           {kLines, kHot, 7.5, 7, 7.5, 11.5},
                           {kLines, kHot, 5.5, 7.5, 9.5, 7.5},
                           {kLines, kHot, 5.5, 9.5, 9.5, 9.5}};
constexpr Mark kTransfer[] = {{kLines, kInk, 2.5, 5.5, 13.5, 5.5},
                              {kLines, kInk, 10.5, 2.5, 13.5, 5.5},
                              {kLines, kHot, 2.5, 10.5, 13.5, 10.5},
                              {kLines, kHot, 5.5, 13.5, 2.5, 10.5}};
constexpr Mark kPassword[] = {{kArc, kInk, 5, 11, 3.5, 0, 360},
                              {kLines, kInk, 7.5, 8.5, 13.5, 2.5},
                              {kLines, kHot, 11, 5, 13.25, 7.25},
                              {kLines, kHot, 9, 7, 10.5, 8.5}};
constexpr Mark kSettlement[] = {
    {kLines, kInk, 9.5, 1.5, 3.5, 1.5, 3.5, 14.5, 12.5, 14.5, 12.5, 4.5},
    {kLines, kInk, 9.5, 1.5, 12.5, 4.5},
    {kLines, kInk, 9.5, 1.5, 9.5, 4.5, 12.5, 4.5},
    {kLines, kInk, 5.5, 7.5, 10.5, 7.5},
    {kLines, kInk, 5.5, 9.5, 10.5, 9.5},
    {kLines, kHot, 8.5, 11.5, 10.5, 11.5}};
constexpr Mark kSettings[] = {{kLines, kInk, 1.5, 3.5, 14.5, 3.5},
                              {kLines, kInk, 1.5, 8.5, 14.5, 8.5},
                              {kLines, kInk, 1.5, 13.5, 14.5, 13.5},
                              {kDot, kHot, 5, 3.5, 2},
                              {kDot, kHot, 11, 8.5, 2},
                              {kDot, kHot, 7, 13.5, 2}};
constexpr Mark kCombination[] = {{kBox, kInk, 1, 1, 9, 9}, {kBox, kHot, 6, 6, 9, 9}};
constexpr Mark kLock[] = {{kBox, kInk, 3, 7, 9, 8},
                          {kLines, kInk, 5.5, 7, 5.5, 4.5},
                          {kLines, kInk, 9.5, 7, 9.5, 4.5},
                          {kArc, kInk, 7.5, 4.25, 2, 180, 360},
                          {kLines, kHot, 7.5, 10.5, 7.5, 11.5}};
constexpr Mark kHistory[] = {{kArc, kInk, 8.5, 8.5, 6, -135, 160},
                             {kLines, kInk, 3.5, 1.5, 3.5, 4.5, 6.5, 4.5},
                             {kLines, kHot, 8.5, 4.5, 8.5, 8.5, 11.5, 8.5}};
constexpr Mark kStops[] = {{kLines, kInk, 1.5, 2.5, 14.5, 2.5},
                           {kLines, kInk, 1.5, 13.5, 14.5, 13.5},
                           {kLines, kHot, 1.5, 9.5, 4.75, 5.75, 7.75, 10.5, 11, 6, 14.5, 8.75}};
constexpr Mark kQuickClose[] = {
    {kLines, kHot, 9.5, 1.5, 3.5, 9, 7.5, 9, 6.5, 14.5, 12.5, 6.75, 8.5, 6.75, 9.5, 1.5}};
constexpr Mark kPlaceOrder[] = {
    {kLines, kInk, 10.75, 2, 14, 5.25, 5.5, 13.75, 2.25, 13.75, 2.25, 10.5, 10.75, 2},
    {kLines, kHot, 8.5, 4.25, 11.75, 7.5}};
constexpr Mark kCancelOrder[] = {
    {kArc, kInk, 7.5, 7.5, 6, 0, 360}, {kLines, kHot, 5, 5, 10, 10}, {kLines, kHot, 10, 5, 5, 10}};
constexpr Mark kContracts[] = {{kLines, kInk, 5.5, 3.5, 14.5, 3.5},
                               {kLines, kInk, 5.5, 8.5, 14.5, 8.5},
                               {kLines, kInk, 5.5, 13.5, 14.5, 13.5},
                               {kBar, kHot, 1, 2, 3, 3},
                               {kBar, kHot, 1, 7, 3, 3},
                               {kBar, kHot, 1, 12, 3, 3}};
constexpr Mark kChart[] = {{kLines, kInk, 3.5, 4.5, 3.5, 14.5},   {kBar, kInk, 2, 7, 3, 5},
                           {kLines, kHot, 8.5, 1.5, 8.5, 11.5},   {kBar, kHot, 7, 3, 3, 6},
                           {kLines, kInk, 13.5, 3.5, 13.5, 12.5}, {kBar, kInk, 12, 5, 3, 5}};
constexpr Mark kAccount[] = {{kArc, kInk, 8, 4.5, 3, 0, 360},
                             {kArc, kInk, 8, 14.5, 5.5, 180, 360},
                             {kLines, kInk, 2.5, 14.5, 13.5, 14.5}};
constexpr Mark kBank[] = {
    {kLines, kInk, 7.5, 1.5, 13.5, 5.25}, {kLines, kInk, 7.5, 1.5, 1.5, 5.25},
    {kLines, kInk, 1.5, 5.5, 13.5, 5.5},  {kLines, kHot, 3.5, 7.5, 3.5, 11.5},
    {kLines, kHot, 7.5, 7.5, 7.5, 11.5},  {kLines, kHot, 11.5, 7.5, 11.5, 11.5},
    {kLines, kInk, 1.5, 13.5, 13.5, 13.5}};
constexpr Mark kNotice[] = {
    {kLines, kInk, 7.5, 11.5, 14.5, 11.5, 14.5, 2.5, 1.5, 2.5, 1.5, 11.5, 4.5, 11.5, 4.5, 14.5},
    {kLines, kInk, 4.5, 14.5, 7.5, 11.5},
    {kLines, kHot, 4.5, 5.5, 11.5, 5.5},
    {kLines, kHot, 4.5, 8.5, 9.5, 8.5}};
constexpr Mark kReport[] = {{kLines, kInk, 1.5, 1.5, 1.5, 14.5, 14.5, 14.5},
                            {kBar, kInk, 4, 8, 2, 5},
                            {kBar, kHot, 8, 3, 2, 10},
                            {kBar, kInk, 12, 6, 2, 7}};
constexpr Mark kExport[] = {{kLines, kHot, 7.5, 10.5, 7.5, 2.5},
                            {kLines, kHot, 4.25, 5, 7.5, 1.75, 10.75, 5},
                            {kLines, kInk, 1.5, 9.5, 1.5, 14.5, 13.5, 14.5, 13.5, 9.5}};
constexpr Mark kServer[] = {{kBox, kInk, 2, 2, 12, 5},
                            {kBox, kInk, 2, 9, 12, 5},
                            {kBar, kHot, 4, 4, 2, 1},
                            {kBar, kHot, 4, 11, 2, 1}};
constexpr Mark kLogout[] = {{kLines, kInk, 9.5, 1.5, 2.5, 1.5, 2.5, 14.5, 9.5, 14.5},
                            {kLines, kHot, 6.5, 7.5, 13.5, 7.5},
                            {kLines, kHot, 11, 4.25, 14.25, 7.5, 11, 10.75}};
constexpr Mark kRefresh[] = {{kArc, kInk, 8, 8, 6, 200, 325},
                             {kArc, kInk, 8, 8, 6, 20, 145},
                             {kLines, kHot, 13.5, 1.5, 13.5, 5.5, 9.5, 5.5},
                             {kLines, kHot, 2.5, 14.5, 2.5, 10.5, 6.5, 10.5}};
constexpr Mark kSearch[] = {{kArc, kInk, 6.75, 6.75, 5, 0, 360},
                            {kLines, kHot, 10.5, 10.5, 14.25, 14.25}};

constexpr std::span<const Mark> kIcons[] = {
    kOrders,      kPositions,   kTrades, kFunds,   kTransfer, kPassword,   kSettlement,
    kSettings,    kCombination, kLock,   kHistory, kStops,    kQuickClose, kPlaceOrder,
    kCancelOrder, kContracts,   kChart,  kAccount, kBank,     kNotice,     kReport,
    kExport,      kServer,      kLogout, kRefresh, kSearch};
static_assert(std::size(kIcons) == static_cast<std::size_t>(MenuIcon::kCount));

/// Level and upright strokes are sharp at a width of 1; slanted ones need more to look as strong.
double StrokeOf(const Mark& mark) {
    for (std::size_t i = 2; i + 1 < mark.count; i += 2) {
        if (mark.numbers[i] != mark.numbers[i - 2] && mark.numbers[i + 1] != mark.numbers[i - 1])
            return 1.25;
    }
    return 1;
}

void DrawMark(Canvas& canvas, const Mark& mark, COLORREF color) {
    const auto& n = mark.numbers;
    switch (mark.shape) {
        case Shape::kLines: {
            std::vector<Spot> corners;
            for (std::size_t i = 0; i + 1 < mark.count; i += 2) corners.push_back({n[i], n[i + 1]});
            canvas.Lines(corners, StrokeOf(mark), color);
            break;
        }
        case Shape::kBox: canvas.RoundFrame(n[0], n[1], n[2], n[3], 1.5, 1, color); break;
        case Shape::kBar: canvas.Bar(n[0], n[1], n[2], n[3], color); break;
        case Shape::kArc: canvas.Arc({n[0], n[1]}, n[2], n[3], n[4], 1.25, color); break;
        case Shape::kDot: canvas.Disc({n[0], n[1]}, n[2], color); break;
    }
}

}  // namespace

void DrawMenuIcon(Canvas& canvas, MenuIcon icon, COLORREF ink, COLORREF accent) {
    for (const Mark& mark : kIcons[static_cast<std::size_t>(icon)]) {
        DrawMark(canvas, mark, mark.ink == Ink::kMain ? ink : accent);
    }
}

}  // namespace skin
