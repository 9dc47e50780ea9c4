#include "cli/io/compression.h"

#include "cli/io/failure.h"
#include "tests/cli/byte_source.h"

#include <gtest/gtest.h>

namespace vantro {
namespace {

using namespace std::string_literals;
using test::allOf;
using test::bytesOf;

std::string fromHex(const std::string& hex) {
    std::string bytes;
    for (std::size_t at = 0; at < hex.size(); at += 2) {
        bytes += static_cast<char>(std::stoi(hex.substr(at, 2), nullptr, 16));
    }
    return bytes;
}

// "PDR/AA11BB" and a line feed, as the programs gzip and zstd write it.
const std::string text = "PDR/AA11BB\n";
const std::string gzip = fromHex("1f8b08000000000002030b7009d2777434347472e20200d9e6b05b0b000000");
const std::string zstd = fromHex(
    "28b52ffd0458590000"
    "5044522f414131314242"
    "0ad9f6f5bb");

std::string content(const std::string& bytes, std::size_t atMost = 1'000'000) {
    return allOf(unpacked(bytesOf(bytes, atMost), "'a.txt'"), atMost);
}

std::string complaint(const std::string& bytes) {
    try {
        content(bytes);
    } catch (const StreamError& problem) {
        return problem.what();
    }
    return "none";
}

TEST(Compression, OtherSourcesStayUnchanged) {
    for (const std::string& bytes : {""s, "P"s, "PDR/AA11BB\n"s, "\x1F"s, "\x28\xB5\x2F"s, "\x1F\x8C\x08"s}) {
        EXPECT_EQ(content(bytes), bytes);
        EXPECT_EQ(content(bytes, 1), bytes);
    }
}

#ifdef VANTRO_ZLIB

TEST(Compression, GzipIsUnpacked) {
    EXPECT_EQ(content(gzip), text);
    EXPECT_EQ(content(gzip, 1), text);
}

TEST(Compression, SeveralGzipPartsAreOneText) { EXPECT_EQ(content(gzip + gzip + gzip), text + text + text); }

TEST(Compression, DamagedGzipIsReported) {
    EXPECT_EQ(complaint(gzip.substr(0, 20)), "cannot unpack 'a.txt': the gzip data end early");
    std::string damaged = gzip;
    damaged[24] = static_cast<char>(damaged[24] ^ 1);  // of the checksum
    EXPECT_EQ(complaint(damaged), "cannot unpack 'a.txt': the gzip data are damaged");
    EXPECT_EQ(complaint(gzip + "xy"), "cannot unpack 'a.txt': the gzip data are damaged");
}

#endif

#ifdef VANTRO_ZSTD

TEST(Compression, ZstandardIsUnpacked) {
    EXPECT_EQ(content(zstd), text);
    EXPECT_EQ(content(zstd, 1), text);
}

TEST(Compression, SeveralZstandardPartsAreOneText) { EXPECT_EQ(content(zstd + zstd + zstd), text + text + text); }

TEST(Compression, DamagedZstandardIsReported) {
    EXPECT_EQ(complaint(zstd.substr(0, 15)), "cannot unpack 'a.txt': the Zstandard data end early");
    std::string damaged = zstd;
    damaged[22] = static_cast<char>(damaged[22] ^ 1);  // of the checksum
    EXPECT_EQ(complaint(damaged), "cannot unpack 'a.txt': the Zstandard data are damaged");
}

#endif

}  // namespace
}  // namespace vantro
