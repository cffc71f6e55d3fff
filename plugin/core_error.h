#pragma once

#include <string>
#include <string_view>

#include "plugin/contract/account_records.h"

enum class Outcome { kDone, kFailed };

/// How a request ended. A null error is none, and so is a code of 0, whatever the text says.
inline Outcome OutcomeOf(const CZebError* error) {
    return error == nullptr || error->nCode == 0 ? Outcome::kDone : Outcome::kFailed;
}

/// An error's text, within its field; empty for a null error.
std::string_view ErrorText(const CZebError* error);

/// The same, with the words that tell the user which server it comes from.
std::string FramedErrorText(const CZebError* error);
