#pragma once

#include <string>

/// The report that a server asks for from time to time: what the host has to say to the server's
/// challenge, base-64. Empty when the host has nothing to say.
///
/// FIXME: the report goes out as the host gives it; its digest is not formed yet.
std::string BuildClientReport(const std::string& challenge);
