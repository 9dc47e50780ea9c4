// Readers of the kinds of JSON value that the tool accepts. Each receives the events of one value.
#pragma once

#include "cli/json/input.h"
#include "cli/json/output.h"
#include "vantro/built_in_terminal.h"

#include <memory>
#include <string>
#include <vector>

namespace vantro {

/// Reads one value of an expected kind. A value of another kind is recorded as a fault, not raised: whether it matters
/// is known only when the whole request has been read.
class ValueReader : public JsonEvents {
public:
    /// Called before the first event of a value; drops an earlier value.
    void begin();
    /// Drops the value: `isGiven` is false again.
    void forget();

    bool isGiven() const { return given_; }
    /// What is wrong with the value, such as "a text is expected"; empty for a correct one.
    const std::string& fault() const { return fault_; }
    bool isGood() const { return given_ && fault_.empty(); }

    void take(const JsonEvent& event) final;

protected:
    void refuse(std::string fault);

private:
    virtual void clear() = 0;
    virtual void takeWanted(const JsonEvent& event) = 0;

    bool given_ = false;
    std::string fault_;
};

/// A string.
class TextReader final : public ValueReader {
public:
    const Text& text() const { return text_; }

private:
    void clear() override { text_.clear(); }
    void takeWanted(const JsonEvent& event) override;

    Text text_;
};

/// An array of strings.
class ListReader final : public ValueReader {
public:
    TextList& list() { return list_; }

private:
    void clear() override;
    void takeWanted(const JsonEvent& event) override;

    TextList list_;
    bool inList_ = false;
};

/// A keyed collection: an object of texts, booleans, 16-bit integers and lists of texts; null for none.
class CollectionReader final : public ValueReader {
public:
    /// The collection; null for JSON null and when there was no value.
    const std::shared_ptr<BuiltInCollection>& collection() const { return collection_; }

private:
    void clear() override;
    void takeWanted(const JsonEvent& event) override;
    void takeInObject(const JsonEvent& event);
    void takeInList(const JsonEvent& event);
    void takeNested(const JsonEvent& event);
    void add(ItemValue value);
    void addNumber(std::string_view spelled);
    void markWrong();
    void finish();

    enum class Place { Outside, InObject, InList, InUnwanted };

    std::shared_ptr<BuiltInCollection> collection_;
    Place place_ = Place::Outside;
    int unwantedDepth_ = 0;
    Text key_;
    TextList list_;
    std::vector<Text> wrongKeys_;
};

/// Any value, kept as JSON. Numbers keep their spelling.
class CopyReader final : public ValueReader {
public:
    const std::string& json() const { return json_; }

private:
    void clear() override;
    void takeWanted(const JsonEvent& event) override;

    std::string json_;
    JsonOut out_{json_};
    Text decoded_;
};

/// Any value, ignored.
class IgnoringReader final : public ValueReader {
private:
    void clear() override {}
    void takeWanted(const JsonEvent& /*event*/) override {}
};

}  // namespace vantro
