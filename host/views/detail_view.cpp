#include "host/views/detail_view.h"

#include <algorithm>

#include "host/views/quote_rules.h"

namespace views {
namespace {

constexpr int kTitleHeight = 26;
constexpr int kRowHeight = 22;
constexpr int kPadding = 6;
constexpr int kLabelWidth = 48;
constexpr int kLeastColumn = 150;
constexpr int kMostColumns = 3;
constexpr int kDayDetails = 12;

int ColumnsAt(int width) { return std::clamp(width / kLeastColumn, 1, kMostColumns); }

int SectionHeight(int width, std::size_t details) {
    const int columns = ColumnsAt(width);
    return kTitleHeight + (static_cast<int>(details) + columns - 1) / columns * kRowHeight;
}

}  // namespace

int DetailView::LeastHeight(int width) { return SectionHeight(width, kDayDetails); }

void DetailView::SetContract(const std::string& name, int digits,
                             const papercore::ContractTerms* terms) {
    name_ = name;
    digits_ = digits;
    unit_ = terms ? terms->unit : 0;
    terms_ = terms ? TermsDetails(*terms) : std::vector<Detail>();
    sessions_ = terms ? SessionsText(terms->sessions) : std::string();
    quote_.reset();
    if (GetSafeHwnd()) Invalidate(FALSE);
}

void DetailView::SetQuote(const papercore::Quote& quote) {
    quote_ = quote;
    if (GetSafeHwnd()) Invalidate(FALSE);
}

void DetailView::Paint(const Painter& painter, CSize size) {
    painter.Fill({0, 0, size.cx, size.cy}, painter.colors.ground);
    const papercore::Quote quote = quote_.value_or(papercore::Quote{});
    int top = PaintSection(painter, 0, size.cx, name_ + " 当日", DayDetails(quote, digits_, unit_));
    if (terms_.empty()) return;
    top += kPadding;
    if (top + SectionHeight(size.cx, terms_.size()) + kRowHeight > size.cy) return;
    top = PaintSection(painter, top, size.cx, name_ + " 合约", terms_);
    painter.Text({kPadding, top, kPadding + kLabelWidth, top + kRowHeight}, "交易",
                 painter.colors.secondary);
    painter.Text({kPadding + kLabelWidth, top, size.cx - kPadding, top + kRowHeight}, sessions_,
                 painter.colors.text);
}

int DetailView::PaintSection(const Painter& painter, int top, int width, const std::string& title,
                             const std::vector<Detail>& details) const {
    const skin::Palette& colors = painter.colors;
    painter.Fill({0, top, width, top + kTitleHeight}, colors.raised);
    painter.Fill({0, top + kTitleHeight - 1, width, top + kTitleHeight}, colors.line);
    painter.Text({kPadding, top, width - kPadding, top + kTitleHeight - 1}, title, colors.secondary,
                 DT_LEFT, Type::kDense, true);
    top += kTitleHeight;
    const int columns = ColumnsAt(width);
    for (std::size_t at = 0; at < details.size(); ++at) {
        const int column = static_cast<int>(at) % columns;
        if (column == 0 && at > 0) top += kRowHeight;
        const Detail& detail = details[at];
        const RECT cell{width * column / columns + kPadding, top,
                        width * (column + 1) / columns - 2 * kPadding, top + kRowHeight};
        const COLORREF color =
            detail.tendency == 0 ? colors.text : TendencyColor(colors, detail.tendency);
        painter.Text({cell.left, cell.top, cell.left + kLabelWidth, cell.bottom}, detail.label,
                     colors.secondary);
        painter.Text({cell.left + kLabelWidth, cell.top, cell.right, cell.bottom}, detail.text,
                     color, DT_RIGHT);
    }
    return top + kRowHeight;
}

}  // namespace views
