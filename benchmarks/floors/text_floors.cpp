#include "benchmarks/floors/floors.h"
#include "benchmarks/operations.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <memory>
#include <numeric>
#include <string_view>

#include <unicode/coll.h>
#include <unicode/normalizer2.h>
#include <unicode/unistr.h>

namespace tarvolt::benchmarks {

namespace {

void requireSuccess(UErrorCode status, const char* call) {
    if (U_FAILURE(status)) {
        std::fprintf(stderr, "%s: %s\n", call, u_errorName(status));
        std::exit(1);
    }
}

std::string folded(const std::string& text, const icu::Normalizer2& nfd) {
    std::string result;
    if (std::ranges::all_of(text, [](char each) { return static_cast<unsigned char>(each) < 0x80; })) {
        result = text;
        std::ranges::transform(result, result.begin(), [](char each) {
            return each >= 'A' && each <= 'Z' ? static_cast<char>(each - 'A' + 'a') : each;
        });
        return result;
    }
    UErrorCode status = U_ZERO_ERROR;
    icu::UnicodeString decomposed = nfd.normalize(icu::UnicodeString::fromUTF8(text), status);
    nfd.normalize(decomposed.foldCase(), status).toUTF8String(result);
    requireSuccess(status, "normalize");
    return result;
}

} // namespace

void sortFloor(benchmark::State& state, const std::string& list) {
    const std::vector<std::string> names = linesOf(list);
    std::vector<std::string> keys(names.size());
    for (auto _ : state) {
        UErrorCode status = U_ZERO_ERROR;
        const std::unique_ptr<icu::Collator> collator(icu::Collator::createInstance("en_US", status));
        collator->setStrength(icu::Collator::SECONDARY);
        collator->setAttribute(UCOL_NORMALIZATION_MODE, UCOL_ON, status);
        requireSuccess(status, "createInstance");
        std::array<std::uint8_t, 1024> key{};
        for (std::size_t i = 0; i < names.size(); ++i) {
            const int length = collator->getSortKey(icu::UnicodeString::fromUTF8(names[i]), key.data(), key.size());
            keys[i].assign(key.begin(), key.begin() + length);
        }
        std::vector<std::size_t> order(names.size());
        std::iota(order.begin(), order.end(), 0);
        std::ranges::stable_sort(order, {}, [&](std::size_t index) -> std::string_view { return keys[index]; });
        benchmark::DoNotOptimize(order.data());
    }
}

void filterFloor(benchmark::State& state, const std::string& list) {
    const std::vector<std::string> names = linesOf(list);
    UErrorCode status = U_ZERO_ERROR;
    const icu::Normalizer2& nfd = *icu::Normalizer2::getNFDInstance(status);
    requireSuccess(status, "getNFDInstance");
    for (auto _ : state) {
        const std::string search = folded(searchText, nfd);
        for (const auto& name : names) {
            benchmark::DoNotOptimize(folded(name, nfd).find(search));
        }
    }
}

} // namespace tarvolt::benchmarks
