#include "Views/Tools/JSONFormatterView.h"

#include "support/FakeServices.h"

#include <gtest/gtest.h>

namespace korvane {
namespace {

JSONFormatterView typed(std::string text) {
    JSONFormatterView view;
    perform(view, &JSONFormatterView::setInputText, std::move(text));
    return view;
}

JSONFormatterView treeOf(std::string text) {
    JSONFormatterView view;
    view.setShowTreeView(true);
    perform(view, &JSONFormatterView::setInputText, std::move(text));
    return view;
}

/// The rows as text: depth, key, value or count.
std::vector<std::string> rowsOf(const JSONFormatterView& view) {
    std::vector<std::string> lines;
    for (std::size_t index = 0; index < view.tree.rowCount(); ++index) {
        const auto row = view.tree.row(index);
        lines.push_back(std::to_string(row.depth) + " " + row.node->key + " " +
                        row.node->value.value_or(row.count()));
    }
    return lines;
}

const StatusBadge valid{Status::success, "Valid JSON"};

TEST(JSONFormatterView, StartsEmptyWithoutStatus) {
    const JSONFormatterView view;
    EXPECT_EQ(view.status(), std::nullopt);
    EXPECT_FALSE(view.hasOutput());
    EXPECT_FALSE(view.showTreeView);
    EXPECT_FALSE(view.hasTree());
}

TEST(JSONFormatterView, PrettifiesAndMinifies) {
    auto view = typed(R"({"b":[],"a":{"d":1e3,"c":"x/y"}})");
    perform(view, &JSONFormatterView::prettify);
    EXPECT_EQ(view.outputText,
              "{\n  \"a\" : {\n    \"c\" : \"x\\/y\",\n    \"d\" : 1000\n  },\n  \"b\" : []\n}");
    EXPECT_EQ(view.status(), valid);
    perform(view, &JSONFormatterView::minify);
    EXPECT_EQ(view.outputText, R"({"a":{"c":"x\/y","d":1000},"b":[]})");
    EXPECT_EQ(view.status(), valid);
}

TEST(JSONFormatterView, MarksTheErrorUntilTheNextEdit) {
    auto view = typed("[1,\n \"a\" \"b\",\n2]");
    EXPECT_TRUE(view.errorMarks.empty());
    perform(view, &JSONFormatterView::validate);
    EXPECT_EQ(view.status()->place, "line 2, column 6");
    EXPECT_NE(view.status()->message.find(view.status()->place), std::string::npos);
    EXPECT_EQ(view.errorMarks, TextMarks({{.from = 4, .to = 13, .kind = TextMarkKind::errorLine},
                                          {.from = 9, .to = 12, .kind = TextMarkKind::error}}));
    perform(view, &JSONFormatterView::setInputText, "");
    EXPECT_TRUE(view.errorMarks.empty());
    EXPECT_EQ(view.status()->place, "") << "the message stays with an empty input";
}

TEST(JSONFormatterView, MarksAnErrorAtTheEndOfTheInput) {
    auto view = typed("[1,\n");
    perform(view, &JSONFormatterView::prettify);
    EXPECT_EQ(view.errorMarks, TextMarks({{.from = 4, .to = 4, .kind = TextMarkKind::errorLine},
                                          {.from = 4, .to = 4, .kind = TextMarkKind::error}}));
}

TEST(JSONFormatterView, ErrorsWithoutAPlaceAreNotMarked) {
    for (const std::string text : {"", "[\"\xff\"]", "[1]"}) {
        auto view = typed(text);
        perform(view, &JSONFormatterView::prettify);
        EXPECT_TRUE(view.errorMarks.empty());
        EXPECT_EQ(view.status()->place, "");
        view.showErrorPlace();
        EXPECT_EQ(view.shownPlace, TextPlace());
    }
}

TEST(JSONFormatterView, ShowsTheErrorAsOftenAsAsked) {
    auto view = typed("[x]");
    perform(view, &JSONFormatterView::validate);
    for (const std::size_t request : {1U, 2U}) {
        view.showErrorPlace();
        EXPECT_EQ(view.shownPlace, (TextPlace{.selection = {1, 1}, .request = request, .takesFocus = true}));
    }
}

TEST(JSONFormatterView, PrettifyingEmptyInputShowsAnErrorAndClearsTheOutput) {
    auto view = typed("[1]");
    perform(view, &JSONFormatterView::prettify);
    perform(view, &JSONFormatterView::setInputText, "");
    EXPECT_EQ(view.status(), valid) << "the result stays until the next action or edit";
    perform(view, &JSONFormatterView::prettify);
    EXPECT_EQ(view.status(), (StatusBadge{Status::error, "Input is empty"}));
    EXPECT_EQ(view.outputText, "");
    EXPECT_EQ(view.isValid, std::nullopt);
}

TEST(JSONFormatterView, ValidatingDiscardsTheOutput) {
    auto view = typed("[1]");
    perform(view, &JSONFormatterView::prettify);
    perform(view, &JSONFormatterView::validate);
    EXPECT_EQ(view.status(), valid);
    EXPECT_EQ(view.outputText, "");
}

TEST(JSONFormatterView, AFailedValidationShowsTheEnginesMessage) {
    auto view = typed("[1");
    perform(view, &JSONFormatterView::validate);
    EXPECT_EQ(view.isValid, false);
    ASSERT_TRUE(view.status());
    EXPECT_EQ(view.status()->status, Status::error);
    EXPECT_TRUE(view.status()->message.starts_with("Invalid JSON: ")) << view.status()->message;
    view.errorMessage.reset();
    EXPECT_EQ(view.status(), (StatusBadge{Status::error, "Invalid JSON"}));
}

TEST(JSONFormatterView, AFailureHidesAnEarlierResult) {
    auto view = typed("[1]");
    perform(view, &JSONFormatterView::validate);
    perform(view, &JSONFormatterView::setInputText, "[1");
    perform(view, &JSONFormatterView::prettify);
    EXPECT_EQ(view.isValid, std::nullopt);
    EXPECT_EQ(view.status()->status, Status::error);
}

TEST(JSONFormatterView, ATopLevelScalarHasATreeButNoPrettyForm) {
    auto view = treeOf("42");
    EXPECT_EQ(rowsOf(view), std::vector<std::string>{"0 root 42"});
    perform(view, &JSONFormatterView::prettify);
    EXPECT_EQ(view.status()->status, Status::error);
}

TEST(JSONFormatterView, SwitchingToTheTreeDoesNotBuildOne) {
    auto view = typed("[1]");
    view.setShowTreeView(true);
    EXPECT_FALSE(view.hasTree());
    perform(view, &JSONFormatterView::setInputText, "[1, 2]");
    EXPECT_TRUE(view.hasTree());
}

TEST(JSONFormatterView, TheTreeFollowsTheInputInTreeModeOnly) {
    auto view = treeOf("[1]");
    view.setShowTreeView(false);
    perform(view, &JSONFormatterView::setInputText, "[1, 2]");
    EXPECT_EQ(view.tree.rowCount(), 2U);
    view.setShowTreeView(true);
    EXPECT_EQ(view.tree.rowCount(), 2U) << "the tree of the last update in tree mode";
}

TEST(JSONFormatterView, ABrokenTextEmptiesTheTreeWithoutAMessage) {
    auto view = treeOf("[1]");
    perform(view, &JSONFormatterView::setInputText, "[1");
    EXPECT_FALSE(view.hasTree());
    EXPECT_EQ(view.tree.rowCount(), 0U);
    EXPECT_EQ(view.status(), std::nullopt);
}

TEST(JSONFormatterView, AnEditClearsStatusAndWarningButNotTheOutput) {
    for (const bool showsTree : {false, true}) {
        for (const auto* text : {"[1]", "[1", R"({"a":1,"a":2})"}) {
            auto view = showsTree ? treeOf(text) : typed(text);
            for (const auto operation :
                 {&JSONFormatterView::prettify, &JSONFormatterView::minify, &JSONFormatterView::validate}) {
                perform(view, &JSONFormatterView::setInputText, text);
                perform(view, operation);
                ASSERT_TRUE(view.status()) << text;
                const auto before = view;
                perform(view, &JSONFormatterView::setInputText, text);
                EXPECT_EQ(view, before) << "nothing has changed";
                perform(view, &JSONFormatterView::setInputText, "[1, 2]");
                EXPECT_EQ(view.status(), std::nullopt) << text;
                EXPECT_EQ(view.warning(), std::nullopt) << text;
                EXPECT_EQ(view.outputText, before.outputText) << "the output stays";
            }
        }
    }
}

TEST(JSONFormatterView, ACorrectedTextHasATreeAndNoStatus) {
    auto view = treeOf("[1");
    perform(view, &JSONFormatterView::validate);
    EXPECT_TRUE(view.errorMessage);
    EXPECT_EQ(view.isValid, false);
    perform(view, &JSONFormatterView::setInputText, "[1]");
    EXPECT_TRUE(view.hasTree());
    EXPECT_EQ(view.status(), std::nullopt);
}

TEST(JSONFormatterView, WarnsAboutDuplicateNames) {
    const StatusBadge warning{Status::warning, R"(Duplicate name "a": only its last value counts)"};
    auto view = typed(R"({"a":1,"a":2})");
    EXPECT_EQ(view.warning(), std::nullopt) << "the text has not been parsed";
    for (const auto operation :
         {&JSONFormatterView::prettify, &JSONFormatterView::minify, &JSONFormatterView::validate}) {
        perform(view, operation);
        EXPECT_EQ(view.status(), valid);
        EXPECT_EQ(view.warning(), warning);
    }
    perform(view, &JSONFormatterView::setInputText, "");
    EXPECT_EQ(view.warning(), warning);
    perform(view, &JSONFormatterView::validate);
    EXPECT_EQ(view.warning(), std::nullopt);
    view = treeOf(R"({"a":1,"a":2})");
    EXPECT_EQ(view.status(), std::nullopt);
    EXPECT_EQ(view.warning(), warning) << "building the tree finds them";
    perform(view, &JSONFormatterView::setInputText, R"({"a":1,"a":2)");
    EXPECT_EQ(view.warning(), std::nullopt);
}

TEST(JSONFormatterView, ClearKeepsOutputAndStatus) {
    auto view = typed("[1]");
    perform(view, &JSONFormatterView::minify);
    perform(view, &JSONFormatterView::setInputText, "");
    EXPECT_EQ(view.outputText, "[1]");
    EXPECT_EQ(view.status(), valid);
}

TEST(JSONTree, ListsRowsInReadingOrder) {
    const auto view = treeOf(R"({"b":{"y":true,"x":null},"a":["s",2],"e":{}})");
    EXPECT_EQ(rowsOf(view), (std::vector<std::string>{"0 root {3}", "1 a [2]", "2 [0] \"s\"", "2 [1] 2",
                                                      "1 b {2}", "2 x null", "2 y true", "1 e {0}"}));
    EXPECT_FALSE(view.tree.row(view.tree.rowCount() - 1).hasChildren());
}

TEST(JSONTree, FoldsAndUnfoldsRows) {
    auto view = treeOf(R"([[1,[2]],3])");
    const auto all = rowsOf(view);
    const auto revision = view.tree.revision();
    view.toggleRow(1);
    EXPECT_EQ(rowsOf(view), (std::vector<std::string>{"0 root [2]", "1 [0] [2]", "1 [1] 3"}));
    EXPECT_FALSE(view.tree.row(1).isExpanded);
    EXPECT_NE(view.tree.revision(), revision);
    view.toggleRow(2); // a scalar
    EXPECT_EQ(view.tree.rowCount(), 3U);
    view.toggleRow(99);
    view.toggleRow(1);
    EXPECT_EQ(rowsOf(view), all);
}

TEST(JSONTree, AFoldedInnerRowStaysFoldedBelowAFoldedOne) {
    auto view = treeOf(R"([[1,[2]],3])");
    view.toggleRow(3);
    view.toggleRow(1);
    view.toggleRow(1);
    EXPECT_EQ(rowsOf(view).size(), 5U);
}

TEST(JSONTree, AnEditUnfoldsAllButTheRoot) {
    auto view = treeOf("[[1]]");
    view.toggleRow(1);
    view.toggleRow(0);
    perform(view, &JSONFormatterView::setInputText, "[[1,2]]");
    EXPECT_EQ(view.tree.rowCount(), 1U);
    view.toggleRow(0);
    EXPECT_EQ(view.tree.rowCount(), 4U);
}

TEST(JSONTree, ARootThatReappearsIsUnfolded) {
    auto view = treeOf("[1]");
    view.toggleRow(0);
    perform(view, &JSONFormatterView::setInputText, "[1");
    perform(view, &JSONFormatterView::setInputText, "[1]");
    EXPECT_EQ(view.tree.rowCount(), 2U);
}

TEST(JSONTree, LeavingTreeModeUnfoldsAllRows) {
    auto view = treeOf("[1]");
    view.toggleRow(0);
    view.setShowTreeView(false);
    view.setShowTreeView(true);
    EXPECT_EQ(view.tree.rowCount(), 2U);
}

TEST(JSONTree, EveryTypeHasItsColor) {
    struct Row {
        JSONValueType type;
        PaletteColor color;
    };

    constexpr Row rows[] = {
        {JSONValueType::object, PaletteColor::cyan},  {JSONValueType::array, PaletteColor::purple},
        {JSONValueType::string, PaletteColor::green}, {JSONValueType::number, PaletteColor::orange},
        {JSONValueType::bool_, PaletteColor::blue},   {JSONValueType::null, PaletteColor::gray},
        {JSONValueType::unknown, PaletteColor::red},
    };
    for (const auto& row : rows)
        EXPECT_EQ(colorForType(row.type), row.color);
}

TEST(JSONFormatterView, CopiesTheKeyAndThePathOfARow) {
    const auto view = treeOf(R"({"a":[{"b c":1,"d_2é":2}],"":3,"2x":4,"q\"\n":{"e":null}})");

    struct Row {
        std::optional<std::string> key;
        std::string path;
        bool operator==(const Row&) const = default;
    };

    std::vector<Row> rows;
    for (std::size_t row = 0; row < view.tree.rowCount(); ++row)
        rows.push_back({view.tree.copiedKey(row), view.tree.path(row)});
    const std::vector<Row> expected{{std::nullopt, "$"},      {"", R"($[""])"},
                                    {"2x", R"($["2x"])"},     {"a", "$.a"},
                                    {std::nullopt, "$.a[0]"}, {"b c", R"($.a[0]["b c"])"},
                                    {"d_2é", "$.a[0].d_2é"},  {"q\"\n", R"($["q\"\n"])"},
                                    {"e", R"($["q\"\n"].e)"}};
    EXPECT_EQ(rows, expected);
}

TEST(JSONFormatterView, CopiesTheValueOfARow) {
    const auto copied = [](std::string text, std::size_t row) {
        return treeOf(std::move(text)).tree.copiedValue(row);
    };
    EXPECT_EQ(copied(R"("a \"b\"\n\u0001é")", 0), "a \"b\"\n\u0001é") << "the content of the string";
    EXPECT_EQ(copied(R"("")", 0), "");
    EXPECT_EQ(copied("1e3", 0), "1000");
    EXPECT_EQ(copied("[false,null]", 1), "false");
    EXPECT_EQ(copied("[false,null]", 2), "null");
    EXPECT_EQ(copied("[{},[]]", 1), "{}");
    auto view = treeOf(R"({"q\"\\\u0002":{"x":["a\tb",-0.5,true,null,{}]}})");
    const auto copy = view.tree.copiedValue(0);
    perform(view, &JSONFormatterView::prettify);
    EXPECT_EQ(copy, view.outputText) << "JSON as in the output, including folded rows";
    view.toggleRow(1);
    EXPECT_EQ(view.tree.copiedValue(0), copy);
}

} // namespace
} // namespace korvane
