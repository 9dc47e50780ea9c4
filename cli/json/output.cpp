#include "cli/json/output.h"

#include "cli/io/utf.h"

#include <rapidjson/prettywriter.h>
#include <rapidjson/writer.h>
#include <variant>

namespace vantro {

namespace {

/// The output stream of the JSON library.
class Sink {
public:
    using Ch = char;

    explicit Sink(std::string& out) : out_(out) {}

    void Put(char character) { out_.push_back(character); }
    void Flush() {}

private:
    std::string& out_;
};

using OneLineWriter = rapidjson::Writer<Sink>;
using IndentedWriter = rapidjson::PrettyWriter<Sink>;

}  // namespace

class JsonOut::Writer {
public:
    Writer(std::string& out, JsonStyle style) : sink_(out) {
        if (style == JsonStyle::Indented) {
            writer_.emplace<IndentedWriter>(sink_).SetIndent(' ', 2);
        } else {
            writer_.emplace<OneLineWriter>(sink_);
        }
    }

    /// Calls the chosen writer.
    template <class Write>
    void write(Write write) {
        std::visit(
            [&](auto& writer) {
                if constexpr (!std::is_same_v<std::decay_t<decltype(writer)>, std::monostate>) write(writer);
            },
            writer_);
    }

    /// The text in UTF-8; valid until the next call.
    const std::string& inUtf8(TextView text) {
        utf8_.clear();
        appendUtf8(text, utf8_);
        return utf8_;
    }

    void restart() {
        write([&](auto& writer) { writer.Reset(sink_); });
    }

private:
    Sink sink_;
    std::variant<std::monostate, OneLineWriter, IndentedWriter> writer_;
    std::string utf8_;
};

namespace {

rapidjson::SizeType sizeOf(std::string_view text) { return static_cast<rapidjson::SizeType>(text.size()); }

}  // namespace

JsonOut::JsonOut(std::string& out, JsonStyle style) : writer_(std::make_unique<Writer>(out, style)) {}
JsonOut::~JsonOut() = default;

void JsonOut::beginObject() {
    writer_->write([](auto& writer) { writer.StartObject(); });
}

void JsonOut::endObject() {
    writer_->write([](auto& writer) { writer.EndObject(); });
}

void JsonOut::beginArray() {
    writer_->write([](auto& writer) { writer.StartArray(); });
}

void JsonOut::endArray() {
    writer_->write([](auto& writer) { writer.EndArray(); });
}

void JsonOut::key(TextView name) { key(std::string_view(writer_->inUtf8(name))); }

void JsonOut::key(std::string_view utf8Name) {
    writer_->write([&](auto& writer) { writer.Key(utf8Name.data(), sizeOf(utf8Name)); });
}

void JsonOut::text(TextView value) {
    const std::string& utf8 = writer_->inUtf8(value);
    writer_->write([&](auto& writer) { writer.String(utf8.data(), sizeOf(utf8)); });
}

void JsonOut::number(int value) {
    writer_->write([&](auto& writer) { writer.Int(value); });
}

void JsonOut::boolean(bool value) {
    writer_->write([&](auto& writer) { writer.Bool(value); });
}

void JsonOut::null() {
    writer_->write([](auto& writer) { writer.Null(); });
}

void JsonOut::raw(std::string_view json) {
    writer_->write([&](auto& writer) { writer.RawValue(json.data(), json.size(), rapidjson::kNumberType); });
}

void JsonOut::restart() { writer_->restart(); }

}  // namespace vantro
