// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <cstdint>

// Each of these writes the result, wrapped to 32 bits, and returns whether it did not fit.
namespace vorhaven {

#if defined(__GNUC__) && !defined(VORHAVEN_PORTABLE)

// The compiler's own functions cost one jump on the processor's overflow flag.
constexpr bool AddOverflows(std::int32_t a, std::int32_t b, std::int32_t& sum) {
    return __builtin_add_overflow(a, b, &sum);
}
constexpr bool SubtractOverflows(std::int32_t a, std::int32_t b, std::int32_t& difference) {
    return __builtin_sub_overflow(a, b, &difference);
}
constexpr bool MultiplyOverflows(std::int32_t a, std::int32_t b, std::int32_t& product) {
    return __builtin_mul_overflow(a, b, &product);
}

#else

constexpr bool DoesNotFit(std::int64_t exact, std::int32_t& result) {
    result = static_cast<std::int32_t>(exact);
    return result != exact;
}
constexpr bool AddOverflows(std::int32_t a, std::int32_t b, std::int32_t& sum) {
    return DoesNotFit(std::int64_t{a} + b, sum);
}
constexpr bool SubtractOverflows(std::int32_t a, std::int32_t b, std::int32_t& difference) {
    return DoesNotFit(std::int64_t{a} - b, difference);
}
constexpr bool MultiplyOverflows(std::int32_t a, std::int32_t b, std::int32_t& product) {
    return DoesNotFit(std::int64_t{a} * b, product);
}

#endif

} // namespace vorhaven
