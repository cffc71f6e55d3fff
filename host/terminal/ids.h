#pragma once

#include "platform/system.h"

namespace terminal {

// Children of the frame, as automation finds them.
inline constexpr UINT kTopBarId = 21001;
inline constexpr UINT kQuoteListId = 21002;
inline constexpr UINT kChartId = 21003;
inline constexpr UINT kDepthId = 21004;
inline constexpr UINT kLogLineId = 21005;
inline constexpr UINT kLogListId = 21006;
inline constexpr UINT kPagesPaneId = 21007;
inline constexpr UINT kDetailId = 21008;
inline constexpr UINT kQuotesSplitId = 21011;
inline constexpr UINT kDepthSplitId = 21012;
inline constexpr UINT kPagesSplitId = 21013;

// Templates.
inline constexpr UINT kSignInDialog = 20001;
inline constexpr UINT kParamDialog = 20002;
inline constexpr UINT kHelpDialog = 20003;

}  // namespace terminal
