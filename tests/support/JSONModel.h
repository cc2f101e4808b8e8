/// A naive model of JSON documents to compare the engine with; properties draw them at random.
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
    std::string literal{};   ///< a scalar as it may be written in a text
    std::string canonical{}; ///< the same in canonical form; the content of a string
    std::vector<JSONModel> elements{};
    std::map<std::string, JSONModel> members{};

    bool isContainer() const { return kind == Kind::array || kind == Kind::object; }
};

/// A document with an object or array at the top. Call it inside a property only.
JSONModel randomJSONModel();

/// Some text of the document: random white space, escapes, order of members, and members that a later one of
/// the same name replaces. Call it inside a property only.
std::string randomJSONText(const JSONModel& model);

/// The expected output of the document.
std::string expectedMinified(const JSONModel& model);
std::string expectedPrettified(const JSONModel& model, int level = 0);

} // namespace korvane::support
