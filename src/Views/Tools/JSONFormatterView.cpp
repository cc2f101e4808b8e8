#include "Views/Tools/JSONFormatterView.h"

#include <expected>
#include <stop_token>
#include <utility>

namespace korvane {

namespace {

/// The engine ignores its value.
constexpr int indent = 2;

} // namespace

struct JSONFormatterView::Result {
    Rope output{};
    std::optional<bool> isValid{};
    std::optional<JSONFormatter::JSONError> error{};
    JSONFormatter::DuplicateNames duplicates{};

    /// What a text or an error says.
    static Result of(std::expected<std::string, JSONFormatter::JSONError> text,
                     JSONFormatter::DuplicateNames duplicates) {
        if (!text)
            return {.error = std::move(text.error())};
        return {.output = *std::move(text), .isValid = true, .duplicates = std::move(duplicates)};
    }
};

struct JSONFormatterView::Tree {
    std::shared_ptr<const JSONNode> root{};
    std::shared_ptr<const JSONOutline> outline{};
    JSONFormatter::DuplicateNames duplicates{};
};

void JSONFormatterView::setInputText(Rope text, const Context<JSONFormatterView>& context) {
    if (text == inputText)
        return;
    inputText = std::move(text);
    setErrorPlace(std::nullopt);
    formatting.cancel();
    treeBuilding.cancel();
    if (!inputText.empty())
        clearStatus();
    if (showTreeView)
        updateTree(context);
}

void JSONFormatterView::setShowTreeView(bool show) {
    if (!show)
        tree.expandAll(); // which rows are collapsed is not kept while the tree is hidden
    showTreeView = show;
}

JSONFormatterView::Result JSONFormatterView::prettified(std::string_view input) {
    JSONFormatter::DuplicateNames duplicates;
    auto text = JSONFormatter::prettify(input, indent, &duplicates);
    return Result::of(std::move(text), std::move(duplicates));
}

JSONFormatterView::Result JSONFormatterView::minified(std::string_view input) {
    JSONFormatter::DuplicateNames duplicates;
    auto text = JSONFormatter::minify(input, &duplicates);
    return Result::of(std::move(text), std::move(duplicates));
}

JSONFormatterView::Result JSONFormatterView::validated(std::string_view input) {
    JSONFormatter::DuplicateNames duplicates;
    auto verdict = JSONFormatter::validate(input, &duplicates);
    if (!verdict)
        return {.isValid = false, .error = std::move(verdict.error())};
    return {.isValid = true, .duplicates = std::move(duplicates)};
}

void JSONFormatterView::prettify(const Context<JSONFormatterView>& context) {
    run(context, "Formatting", prettified);
}

void JSONFormatterView::minify(const Context<JSONFormatterView>& context) {
    run(context, "Minifying", minified);
}

void JSONFormatterView::validate(const Context<JSONFormatterView>& context) {
    run(context, "Validating", validated);
}

void JSONFormatterView::run(const Context<JSONFormatterView>& context, std::string_view verb,
                            Operation operation) {
    clearStatus();
    runAwaited(
        context, *this, &JSONFormatterView::formatting, {.verb = verb, .bytes = inputText.size()},
        [text = inputText, operation](const std::stop_token&) { return operation(FlatText(text)); },
        &JSONFormatterView::showResult);
}

void JSONFormatterView::showResult(Result result) {
    outputText = std::move(result.output);
    isValid = result.isValid;
    errorMessage = result.error ? std::optional(result.error->errorDescription()) : std::nullopt;
    duplicates = std::move(result.duplicates);
    setErrorPlace(result.error ? std::move(result.error->place) : std::nullopt);
}

void JSONFormatterView::clearStatus() {
    errorMessage.reset();
    isValid.reset();
    duplicates = {};
    setErrorPlace(std::nullopt);
}

void JSONFormatterView::setErrorPlace(std::optional<JSONFormatter::JSONError::Place> place) {
    errorPlace = std::move(place);
    errorMarks = {};
    if (!errorPlace)
        return;
    const auto line = inputText.newlinesBefore(errorPlace->offset);
    const bool isLast = line == inputText.newlineCount();
    errorMarks =
        TextMarks({{.from = inputText.afterNewline(line),
                    .to = isLast ? inputText.size() : inputText.afterNewline(line + 1) - 1,
                    .kind = TextMarkKind::errorLine},
                   {.from = errorPlace->offset, .to = errorPlace->end, .kind = TextMarkKind::error}});
}

void JSONFormatterView::showErrorPlace() {
    if (!errorPlace)
        return;
    shownPlace = {.selection = {errorPlace->offset, errorPlace->offset},
                  .request = shownPlace.request + 1,
                  .takesFocus = true};
}

void JSONFormatterView::updateTree(const Context<JSONFormatterView>& context) {
    const Workload load{.verb = "Reading", .bytes = inputText.size()};
    const auto share = [isShort = load.isShort(), &background = context.services.background](JSONNode root) {
        return isShort ? std::make_shared<const JSONNode>(std::move(root))
                       : shareLarge(background, std::move(root));
    };
    runAwaited(
        context, *this, &JSONFormatterView::treeBuilding, load,
        [text = inputText, share](const std::stop_token& stop) {
            Tree built;
            if (auto root = JSONFormatter::parseToTree(FlatText(text), &built.duplicates)) {
                built.root = share(*std::move(root));
                built.outline = JSONOutline::of(built.root, stop);
            }
            return built;
        },
        &JSONFormatterView::showTree);
}

void JSONFormatterView::cancel() {
    formatting.cancel();
    if (treeBuilding.isRunning()) {
        treeBuilding.cancel();
        showTree({});
    }
}

void JSONFormatterView::showTree(Tree built) {
    treeRoot = std::move(built.root);
    tree.setOutline(std::move(built.outline));
    if (treeRoot)
        duplicates = std::move(built.duplicates);
}

void JSONFormatterView::toggleRow(std::size_t index) {
    tree.toggle(index);
}

std::optional<StatusBadge> JSONFormatterView::status() const {
    if (errorMessage)
        return StatusBadge{Status::error, *errorMessage, errorPlace ? errorPlace->name : ""};
    if (!isValid)
        return std::nullopt;
    return *isValid ? StatusBadge{Status::success, "Valid JSON"} : StatusBadge{Status::error, "Invalid JSON"};
}

std::optional<StatusBadge> JSONFormatterView::warning() const {
    auto description = duplicates.description();
    if (description.empty())
        return std::nullopt;
    return StatusBadge{Status::warning, std::move(description)};
}

} // namespace korvane
