// SPDX-License-Identifier: GPL-3.0-or-later

#include "base/Chance.h"
#include "base/Conversion.h"
#include "base/ForeignText.h"
#include "base/InternedText.h"
#include "base/KeyedCollection.h"
#include "tests/support/Errors.h"
#include "tests/support/Text.h"

#include <gtest/gtest.h>

#include <functional>
#include <limits>

namespace vorhaven::test {
namespace {

constexpr std::int32_t Lowest = std::numeric_limits<std::int32_t>::min();
constexpr std::int32_t Highest = std::numeric_limits<std::int32_t>::max();

TEST(Count, ThatDoesNotFitIsAnOverflowAndLeavesTheOldOne) {
    Long high = Highest, low = Lowest;
    const std::function<void()> overflows[] = {[&] { high += 1; }, [&] { low -= 1; },
                                               [&] { ++high; },    [&] { --low; },
                                               [&] { high * 2; },  [&] { Long{65536} * 32768; }};
    for (const auto& overflow : overflows)
        EXPECT_EQ(ErrorOf(overflow), 6);
    EXPECT_EQ(Joined({high, low}), "2147483647 -2147483648");
    Long count = 7;
    EXPECT_EQ(++count, 8);
    EXPECT_EQ(--count, 7);
    EXPECT_EQ(count += 5, 12);
    EXPECT_EQ(count -= 9, 3);
}

TEST(Count, WithLimitsIsClampedByEveryWrite) {
    Bounded<2, 5> bounded, fresh;
    EXPECT_EQ(fresh, 0) << "a fresh one is not written yet";
    for (const auto& [written, read] : {std::pair{Lowest, 2}, {1, 2}, {2, 2}, {5, 5}, {6, 5}, {Highest, 5}})
        EXPECT_EQ(bounded = written, read);
    EXPECT_EQ(bounded = Long{fresh}, 2);
}

TEST(ForeignText, IsQuotedOnOneShortLineWhateverItHolds) {
    const auto letters = [](std::size_t count) { return std::string(count, 'o'); };
    const std::string omega = "\u03A9", none = "\uFFFD";
    // clang-format off
    for (const auto& [text, shown] : {
             std::pair{std::string(), std::string()},
             // whose label decides that it is no markup
             {"<img src=\"/dev/zero\">", "<img src=\"/dev/zero\">"},
             {std::string("a\0b\tc\r\nd\x7F", 9), "a" + none + "b" + none + "c" + none + none + "d" + none},
             {"\u0085 \u2028 \u202E \u2066", none + ' ' + none + ' ' + none + ' ' + none},
             {"\xFF" + omega + "\xC3", none + omega + none},
             {letters(39) + omega, letters(39) + omega},
             {letters(40) + omega, letters(39) + "\u2026"},
             {letters(39) + omega + '\n', letters(39) + "\u2026"},
             {letters(std::size_t{1} << 20), letters(39) + "\u2026"}})
        EXPECT_EQ(Quoted(text), '"' + shown + '"');
    // clang-format on
    EXPECT_EQ(Visible(letters(50) + "\n" + omega), letters(50) + none + omega) << "whole";
}

TEST(Conversion, TextBecomesTheNearestCountAndAHalfTheEvenOne) {
    // clang-format off
    for (const auto& [text, count] :
         {std::pair{"0", 0}, {"-1", -1}, {"+4", 4}, {" 7 ", 7},
          {".5", 0}, {"2.5", 2}, {"3.5", 4}, {"2.51", 3}, {"-2.5", -2}, {"-3.5", -4},
          {"1e3", 1000}, {"25E-1", 2}, {"1e-999", 0}, {"-1e-999", 0},
          {"2147483647.4", Highest}, {"-2147483648.5", Lowest}})
        // clang-format on
        EXPECT_EQ(ToLong(text), count) << text;
}

TEST(Conversion, TextThatIsNoNumberIsAMismatchAndANumberThatDoesNotFitAnOverflow) {
    for (const char* text :
         {"", " ", "12a", "1 2", "1e", "1,5", "inf", "nan", "0x10", "+-1", "++1", "-", "\t1"})
        EXPECT_EQ(ErrorOf([text] { return ToLong(text); }), 13) << text;
    for (const char* text : {"2147483647.5", "-2147483649", "99999999999", "1e999", "-1e999"})
        EXPECT_EQ(ErrorOf([text] { return ToLong(text); }), 6) << text;
    EXPECT_EQ(ToShort(-32768), -32768);
    EXPECT_EQ(ToShort(32767), 32767);
    for (const Long value : {-32769, 32768})
        EXPECT_EQ(ErrorOf([value] { return ToShort(value); }), 6);
}

TEST(Conversion, NumberBecomesItsSignificantDigitsAndNoMore) {
    for (const auto& [value, text] : {std::pair{100.0 / 3, "33.33333"},
                                      {100, "100"},
                                      {0, "0"},
                                      {-2.5, "-2.5"},
                                      {1e9 + 64, "1000000000"},
                                      {1e-8, "0.00000001"},
                                      {99.9999999, "100"}})
        EXPECT_EQ(ToSignificantText(value, 7), text);
}

TEST(Chance, IsCalledCertainOnlyWhereItIs) {
    EXPECT_EQ(ToSignedText(-0.04, 1) + ToSignedText(-0.06, 1), "+0.0\u22120.1");
    const struct {
        Chance Given;
        int Decimals;
        const char* Text;
    } cases[] = {
        {{573, 427}, 1, "57.3%"},
        {{1, 0}, 1, "100.0%"},
        {{0, 1}, 1, "0.0%"},
        {{1, 1e-300}, 1, "> 99.9%"},
        {{1e-300, 1}, 1, "< 0.1%"},
        {{0.9996, 0.0004}, 1, "> 99.9%"},
        {{0.9994, 0.0006}, 1, "99.9%"},
        {{0.0006, 0.9994}, 1, "0.1%"},
        {{1, 2}, 4, "33.3333%"},
        {{0, 7}, 0, "0%"},
        {{7, 0}, 0, "100%"},
        {{1, 199}, 0, "<1%"},
        {{199, 1}, 0, ">99%"},
        {{5, 195}, 0, "2%"},
        {{7, 193}, 0, "4%"},
    };
    for (const auto& c : cases)
        EXPECT_EQ(PercentText(c.Given, c.Decimals), c.Text) << c.Given.For << ' ' << c.Given.Against;
}

TEST(Conversion, TextsAreComparedWithoutOuterBlanksAndAsciiCapitals) {
    EXPECT_EQ(ToTrimmedLower("  Undead \xC3\x84Z "), "undead \xC3\x84z");
    EXPECT_EQ(InternedText{"a"}, InternedText{std::string{"a"}});
    EXPECT_FALSE(InternedText{"a"} == InternedText{"A"});
}

TEST(KeyedCollection, PlacesAndKeysThatAreNotThereOrTakenAreErrors) {
    KeyedCollection<char> letters;
    for (const auto& [letter, key] : {std::pair{'a', "first"}, {'b', ""}, {'c', "third"}, {'d', ""}})
        letters.Add(letter, key);
    EXPECT_EQ(ErrorOf([&] { letters.Add('e', "third"); }), 457);
    letters.Remove(1);
    EXPECT_EQ(std::string(letters.begin(), letters.end()), "bcd");
    EXPECT_EQ(letters.Item("third"), 'c') << "keys keep to their items";
    const auto expectNone = [&](auto place) {
        EXPECT_EQ(ErrorOf([&] { return letters.Item(place); }), 5) << place;
        EXPECT_EQ(ErrorOf([&] { letters.Remove(place); }), 5) << place;
    };
    for (const std::int32_t position : {-1, 0, 4})
        expectNone(position);
    for (const char* key : {"first", "th", ""})
        expectNone(key);
    letters.Remove("third");
    letters.Add('e', "third");
    EXPECT_EQ(letters.Item("third"), 'e') << "a key that is free again";
    KeyedCollection<char> copies;
    copies.Add('z', "third");
    copies.CopyItems(letters);
    EXPECT_EQ(std::string(copies.begin(), copies.end()), "bde");
    EXPECT_EQ(ErrorOf([&] { return copies.Item("third"); }), 5) << "copies have no keys";
}

TEST(RunTimeError, TellsTheProceduresThatItPassedWithinItsEvent) {
    const auto details = [] { return RunTimeError{ErrorNumber::Overflow}.Details(); };
    EXPECT_EQ(RunTimeError{ErrorNumber::Overflow}.Headline(), "Run-time error '6':\nOverflow");
    const Trap outer{"A::Outer"};
    {
        const Trap inner{"B::Inner"};
        EXPECT_EQ(details(), "Original error: 6, Overflow\nRaised in: B::Inner\nPassed on by: A::Outer");
        const EventScope event;
        EXPECT_EQ(details(), "Original error: 6, Overflow") << "an event knows none of those who wait";
    }
    EXPECT_THAT([] { throw RunTimeError{ErrorNumber::OutOfMemory}; }, Raises(7, {"A::Outer"}));
}

} // namespace
} // namespace vorhaven::test
