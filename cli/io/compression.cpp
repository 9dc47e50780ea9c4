#include "cli/io/compression.h"

#include "cli/io/failure.h"

#include <algorithm>
#include <cstring>
#include <memory>
#include <string_view>
#include <utility>

#ifdef VANTRO_ZLIB
#include <zlib.h>
#endif
#ifdef VANTRO_ZSTD
#include <zstd.h>
#endif

namespace vantro {

namespace {

constexpr std::size_t blockSize = std::size_t{64} * 1024;
constexpr std::string_view gzipMark = "\x1F\x8B";
constexpr std::string_view zstdMark = "\x28\xB5\x2F\xFD";

/// A source from which some bytes were read in advance.
class Peeked {
public:
    explicit Peeked(ByteSource source) : source_(std::move(source)) {}

    bool startsWith(std::string_view mark) {
        while (ahead_.size() < mark.size()) {
            char bytes[sizeof(std::uint64_t)];
            const std::size_t count = source_(std::span(bytes, mark.size() - ahead_.size()));
            if (count == 0) break;
            ahead_.append(bytes, count);
        }
        return ahead_.starts_with(mark);
    }

    std::size_t read(std::span<char> bytes) {
        if (ahead_.empty()) return source_(bytes);
        const std::size_t count = std::min(bytes.size(), ahead_.size());
        std::memcpy(bytes.data(), ahead_.data(), count);
        ahead_.erase(0, count);
        return count;
    }

private:
    ByteSource source_;
    std::string ahead_;
};

/// The packed bytes that were read and not unpacked yet.
struct Packed {
    Packed(std::shared_ptr<Peeked> source, std::string name)
        : source_(std::move(source)), name_(std::move(name)), block_(blockSize, '\0') {}

    /// Reads more if nothing is left. False at the end of the source.
    bool fill() {
        if (left.empty()) left = std::span(block_).first(source_->read(block_));
        return !left.empty();
    }

    [[noreturn]] void fail(std::string_view what) const {
        throw StreamError("cannot unpack " + name_ + ": " + std::string(what));
    }

    std::span<char> left;

private:
    std::shared_ptr<Peeked> source_;
    std::string name_;
    std::string block_;
};

#ifdef VANTRO_ZLIB

class Gunzip {
public:
    explicit Gunzip(Packed packed) : packed_(std::move(packed)) {
        constexpr int gzipOnly = 16;
        if (inflateInit2(&stream_, MAX_WBITS + gzipOnly) != Z_OK) packed_.fail("out of memory");
    }
    ~Gunzip() { inflateEnd(&stream_); }
    Gunzip(const Gunzip&) = delete;
    Gunzip& operator=(const Gunzip&) = delete;

    std::size_t read(std::span<char> bytes) {
        std::size_t count = 0;
        while (count == 0) {
            if (!packed_.fill()) {
                if (isInPart_) packed_.fail("the gzip data end early");
                return 0;
            }
            if (!isInPart_) inflateReset(&stream_);
            count = unpackInto(bytes);
        }
        return count;
    }

private:
    std::size_t unpackInto(std::span<char> bytes) {
        stream_.next_in = reinterpret_cast<Bytef*>(packed_.left.data());
        stream_.avail_in = static_cast<uInt>(packed_.left.size());
        stream_.next_out = reinterpret_cast<Bytef*>(bytes.data());
        stream_.avail_out = static_cast<uInt>(bytes.size());
        const int status = inflate(&stream_, Z_NO_FLUSH);
        if (status != Z_OK && status != Z_STREAM_END && status != Z_BUF_ERROR)
            packed_.fail("the gzip data are damaged");
        isInPart_ = status != Z_STREAM_END;
        packed_.left = packed_.left.last(stream_.avail_in);
        return bytes.size() - stream_.avail_out;
    }

    Packed packed_;
    z_stream stream_{};
    bool isInPart_ = true;
};

#endif

#ifdef VANTRO_ZSTD

class Unzstd {
public:
    explicit Unzstd(Packed packed) : packed_(std::move(packed)), stream_(ZSTD_createDStream(), ZSTD_freeDStream) {
        if (!stream_) packed_.fail("out of memory");
    }

    std::size_t read(std::span<char> bytes) {
        std::size_t count = 0;
        while (count == 0) {
            // What is left in the stream's own memory comes before the next packed bytes.
            if (!packed_.fill() && !isInPart_) return 0;
            const bool isAtEnd = packed_.left.empty();
            count = unpackInto(bytes);
            if (isAtEnd && count == 0 && isInPart_) packed_.fail("the Zstandard data end early");
        }
        return count;
    }

private:
    std::size_t unpackInto(std::span<char> bytes) {
        ZSTD_inBuffer in{packed_.left.data(), packed_.left.size(), 0};
        ZSTD_outBuffer out{bytes.data(), bytes.size(), 0};
        const std::size_t status = ZSTD_decompressStream(stream_.get(), &out, &in);
        if (ZSTD_isError(status) != 0) packed_.fail("the Zstandard data are damaged");
        isInPart_ = status != 0;
        packed_.left = packed_.left.subspan(in.pos);
        return out.pos;
    }

    Packed packed_;
    std::unique_ptr<ZSTD_DStream, std::size_t (*)(ZSTD_DStream*)> stream_;
    bool isInPart_ = true;
};

#endif

template <class Reader>
ByteSource sourceOf(std::shared_ptr<Reader> reader) {
    return [reader](std::span<char> bytes) { return reader->read(bytes); };
}

[[maybe_unused]] ByteSource withoutLibrary(const std::string& name, const char* format, const char* program) {
    return [message = "cannot unpack " + name + ": this build of the tool reads no " + format + "; unpack it with " +
                      program](std::span<char>) -> std::size_t { throw StreamError(message); };
}

ByteSource gunzipped([[maybe_unused]] const std::shared_ptr<Peeked>& source, const std::string& name) {
#ifdef VANTRO_ZLIB
    return sourceOf(std::make_shared<Gunzip>(Packed(source, name)));
#else
    return withoutLibrary(name, "gzip", "gunzip");
#endif
}

ByteSource unzstandard([[maybe_unused]] const std::shared_ptr<Peeked>& source, const std::string& name) {
#ifdef VANTRO_ZSTD
    return sourceOf(std::make_shared<Unzstd>(Packed(source, name)));
#else
    return withoutLibrary(name, "Zstandard", "unzstd");
#endif
}

/// Looks at the first bytes when the source is read, not when it is opened: reading may fail.
class Unpacker {
public:
    Unpacker(ByteSource source, std::string name)
        : source_(std::make_shared<Peeked>(std::move(source))), name_(std::move(name)) {}

    std::size_t read(std::span<char> bytes) {
        if (!unpacked_) unpacked_ = chosen();
        return unpacked_(bytes);
    }

private:
    ByteSource chosen() const {
        if (source_->startsWith(gzipMark)) return gunzipped(source_, name_);
        if (source_->startsWith(zstdMark)) return unzstandard(source_, name_);
        return sourceOf(source_);
    }

    std::shared_ptr<Peeked> source_;
    std::string name_;
    ByteSource unpacked_;
};

}  // namespace

ByteSource unpacked(ByteSource source, std::string name) {
    return sourceOf(std::make_shared<Unpacker>(std::move(source), std::move(name)));
}

}  // namespace vantro
