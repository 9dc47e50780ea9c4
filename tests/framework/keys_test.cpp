// The spelling of a key decides at compile time what it allows; these tests ask the compiler.
#include "framework/keys.h"
#include "framework/access.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <concepts>
#include <cstddef>

namespace vantro {
namespace {

/// A spelling that can be a template argument.
template <std::size_t N>
struct Spelling {
    char16_t characters[N] = {};

    constexpr Spelling(const char16_t (&text)[N]) { std::copy_n(text, N, characters); }
    constexpr TextView view() const { return {characters, N - 1}; }
};

/// True when a key of this type may have this spelling.
template <class T, Spelling spelling>
concept Spellable = requires {
    typename std::bool_constant<(Key<T>{spelling.view()}, true)>;
};

TEST(Keys, ABooleanBeginsWithBln) {
    EXPECT_TRUE((Spellable<bool, u"blnKeyError">));
    EXPECT_FALSE((Spellable<bool, u"strKeyError">));
    EXPECT_FALSE((Spellable<bool, u"intKeyError">));
    EXPECT_FALSE((Spellable<bool, u"KeyError">));
}

TEST(Keys, ATextBeginsWithStrAndIsNotAList) {
    EXPECT_TRUE((Spellable<Text, u"strKeyName">));
    EXPECT_FALSE((Spellable<Text, u"blnKeyName">));
    EXPECT_FALSE((Spellable<Text, u"intKeyName">));
    EXPECT_FALSE((Spellable<Text, u"strKeyElement()">));
}

TEST(Keys, OneTextIsSpelledLikeAnInteger) {
    EXPECT_TRUE((Spellable<Text, u"intKeyArraySize">));
    EXPECT_FALSE((Spellable<Text, u"intKeyIndex">));
}

TEST(Keys, AnIntegerBeginsWithInt) {
    EXPECT_TRUE((Spellable<std::int16_t, u"intKeyIndex">));
    EXPECT_FALSE((Spellable<std::int16_t, u"strKeyIndex">));
}

TEST(Keys, AListEndsInBracketsOrArray) {
    EXPECT_TRUE((Spellable<TextList, u"strKeyElement()">));
    EXPECT_TRUE((Spellable<TextList, u"strKeyElNbrsArray">));
    EXPECT_FALSE((Spellable<TextList, u"strKeyElement">));
}

template <class K, class Value>
concept Addable = requires(Results results, const K& key, Value value) {
    results.add(key, value);
};

TEST(Keys, ResultsAcceptOnlyTheKeysType) {
    EXPECT_TRUE((Addable<Key<bool>, bool>));
    EXPECT_FALSE((Addable<Key<bool>, int>));
    EXPECT_FALSE((Addable<Key<bool>, const char16_t*>));
    EXPECT_TRUE((Addable<Key<Text>, Text>));
    EXPECT_TRUE((Addable<Key<Text>, TextView>));
    EXPECT_FALSE((Addable<Key<Text>, bool>));
    EXPECT_TRUE((Addable<Key<TextList>, TextList>));
    EXPECT_FALSE((Addable<Key<TextList>, bool>));
}

template <class T>
using ReadType = decltype(std::declval<Parameters&>().read(std::declval<const Key<T>&>()));

TEST(Keys, ReadingReturnsTheKeysType) {
    EXPECT_TRUE((std::same_as<ReadType<bool>, bool>));
    EXPECT_TRUE((std::same_as<ReadType<Text>, TextView>));
    EXPECT_TRUE((std::same_as<ReadType<std::int16_t>, std::int16_t>));
}

}  // namespace
}  // namespace vantro
