#pragma once

#include <string>

/// The report that a server asks for from time to time: what the host has to say to the server's
/// challenge, base-64 and cut to what the server takes. Empty when the host has nothing to say.
std::string BuildClientReport(const std::string& challenge);
