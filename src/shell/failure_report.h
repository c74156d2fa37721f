#pragma once
// How the shell's routines report a failure: the shared failure message, with an
// index outside a list of slots told as the platform's bounds error.

#include <QString>

#include <exception>

namespace quillon {

// The platform's number for an index outside an array's bounds.
constexpr int kErrSubscriptOutOfRange = 9;

void ReportFailure(const QString& module, const QString& procedure, const std::exception& error);

}  // namespace quillon
