/// JSON documents in the simplest form there is, to compare the engine with: they write themselves, slowly
/// and plainly, and are drawn at random inside a property.
#pragma once

#include <map>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace korvane::support {

struct JSONModel {
    enum class Kind { scalar, string, array, object };

    Kind kind = Kind::scalar;
    std::string literal{};   ///< a scalar as a text may have it
    std::string canonical{}; ///< the same as it is written; the content of a string
    std::vector<JSONModel> elements{};
    std::map<std::string, JSONModel> members{};

    bool isContainer() const { return kind == Kind::array || kind == Kind::object; }
};

/// A document with an object or array at the top. Call it inside a property only.
JSONModel randomJSONModel();

/// Some text of the document: random white space, escapes, order of members, and members that a later one of
/// the same name replaces. Call it inside a property only.
std::string randomJSONText(const JSONModel& model);

/// The text that the document should be written as.
std::string expectedMinified(const JSONModel& model);
std::string expectedPrettified(const JSONModel& model, int level = 0);

} // namespace korvane::support
