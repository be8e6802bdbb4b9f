// SPDX-License-Identifier: GPL-3.0-or-later

#include "base/RunTimeError.h"

namespace vorhaven {

const char* Description(ErrorNumber number) {
    switch (number) {
    case ErrorNumber::InvalidCall:
        return "Invalid procedure call or argument";
    case ErrorNumber::Overflow:
        return "Overflow";
    case ErrorNumber::OutOfMemory:
        return "Out of memory";
    case ErrorNumber::SubscriptOutOfRange:
        return "Subscript out of range";
    case ErrorNumber::DivisionByZero:
        return "Division by zero";
    case ErrorNumber::TypeMismatch:
        return "Type mismatch";
    case ErrorNumber::DuplicateKey:
        return "This key is already associated with an element of this collection";
    }
    return "Application-defined or object-defined error";
}

RunTimeError::RunTimeError(ErrorNumber number) : number_(number) {
    for (const Trap* trap = Trap::innermost_; trap != nullptr; trap = trap->outer_)
        trail_.push_back(trap->location_);
}

ErrorNumber RunTimeError::ReportedNumber() const {
    return trail_.empty() ? number_ : ErrorNumber::TypeMismatch;
}

std::string RunTimeError::Headline() const {
    const ErrorNumber reported = ReportedNumber();
    return "Run-time error '" + std::to_string(static_cast<int>(reported)) + "':\n" + Description(reported);
}

std::string RunTimeError::Details() const {
    std::string details =
        "Original error: " + std::to_string(static_cast<int>(number_)) + ", " + Description(number_);
    const char* lead = "\nRaised in: ";
    for (const char* location : trail_) {
        details += lead;
        details += location;
        lead = "\nPassed on by: ";
    }
    return details;
}

void Raise(ErrorNumber number) {
    throw RunTimeError{number};
}

} // namespace vorhaven
