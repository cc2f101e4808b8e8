/// `View<State>` ties a screen's controls to its state: a control is made from its name, how to read it and
/// how to change it. An operation changes the state, and then every control reads the state again; no control
/// is ever told about another.
///
/// A reader is a constant or anything that can be invoked with a `const State&` (a field, a member function,
/// a lambda). An operation is anything that can be invoked with a `State&`; one that reaches beyond the state
/// takes a `Context<State>` as well. A setter is an operation that takes the new value too.
#pragma once

#include "Desktop/Kit/Accessibility.h"
#include "Desktop/Kit/Buttons.h"
#include "Desktop/Kit/Editors.h"
#include "Desktop/Kit/Labels.h"
#include "Desktop/Kit/Layout.h"
#include "Desktop/Kit/Messages.h"
#include "Desktop/Kit/SegmentedPicker.h"
#include "Desktop/Kit/SelectableText.h"
#include "Desktop/Kit/Slider.h"
#include "Desktop/Kit/Stepper.h"
#include "Desktop/Kit/TextField.h"
#include "Desktop/Kit/Toggle.h"
#include "Desktop/Kit/TreeView.h"
#include "Desktop/Kit/ViewCore.h"

#include "Models/Enumeration.h"
#include "Models/Tool.h"
#include "Views/Components/PasteButton.h"

#include <algorithm>
#include <functional>
#include <optional>
#include <string>
#include <type_traits>
#include <utility>
#include <vector>

namespace korvane {

template <typename State>
class View : public ViewCore {
public:
    explicit View(Services& services, State state = {}) : ViewCore(services), m_state(std::move(state)) {}

    const State& state() const { return m_state; }

    /// Changes the state and shows the outcome. Does nothing while the controls are being refreshed: a
    /// control that is only brought up to date must not act.
    template <typename Operation, typename... Arguments>
    void perform(Operation&& operation, Arguments&&... arguments) {
        if (!beginOperation())
            return;
        if constexpr (std::is_invocable_v<Operation, State&, Arguments...>)
            std::invoke(operation, m_state, std::forward<Arguments>(arguments)...);
        else
            std::invoke(operation, m_state, std::forward<Arguments>(arguments)..., context());
        refresh();
    }

    /// What an operation gets that reaches beyond the state.
    Context<State> context() {
        return {services(), [this, lifetime = lifetime()](const std::function<void(State&)>& change) {
                    if (!lifetime.expired())
                        perform(change);
                }};
    }

    QWidget* header(Tool tool) { return toolHeader(tool); }

    template <typename Title, typename Icon, typename Color, typename Operation>
    QWidget* actionButton(Title title, Icon icon, Color color, Operation operation) {
        return actionButton(std::move(title), std::move(icon), std::move(color), std::move(operation), false);
    }

    /// `isDisabled` reads whether the button is gray and does not react.
    template <typename Title, typename Icon, typename Color, typename Operation, typename Disabled>
    QWidget* actionButton(Title title, Icon icon, Color color, Operation operation, Disabled isDisabled) {
        return korvane::actionButton(*this, {.title = reading<std::string>(title),
                                             .icon = reading<std::string>(icon),
                                             .color = reading<PaletteColor>(color),
                                             .isDisabled = reading<bool>(isDisabled),
                                             .action = performing(operation)});
    }

    template <typename Text>
    QWidget* copyButton(Text text, CopyButtonOptions options = {}) {
        return korvane::copyButton(*this, reading<std::string>(text), options);
    }

    template <typename Setter>
    QWidget* pasteButton(Setter setter, QuietButtonOptions look = {.dropsLabel = true}) {
        auto set = setting<std::string>(setter);
        return korvane::quietButton(*this,
                                    {.title = [] { return "Paste"; },
                                     .icon = std::string(PasteButton::icon),
                                     .isDisabled = [] { return false; },
                                     .action = [this, set] { PasteButton::paste(services().clipboard, set); },
                                     .look = std::move(look)});
    }

    template <typename Setter>
    QWidget* clearButton(Setter setter) {
        return korvane::quietButton(
            *this, {.title = [] { return "Clear"; },
                    .icon = std::string(ClearButton::icon),
                    .isDisabled = [] { return false; },
                    .action = [set = setting<std::string>(setter)] { ClearButton::clear(set); },
                    .look = {.dropsLabel = true}});
    }

    template <typename Title, typename Operation>
    QWidget* quietButton(Title title, std::string icon, Operation operation, QuietButtonOptions look = {}) {
        return quietButton(std::move(title), std::move(icon), std::move(operation), false, std::move(look));
    }

    template <typename Title, typename Operation, typename Disabled>
        requires(!std::is_same_v<Disabled, QuietButtonOptions>)
    QWidget* quietButton(Title title, std::string icon, Operation operation, Disabled isDisabled,
                         QuietButtonOptions look = {}) {
        return korvane::quietButton(*this, {.title = reading<std::string>(title),
                                            .icon = std::move(icon),
                                            .isDisabled = reading<bool>(isDisabled),
                                            .action = performing(operation),
                                            .look = std::move(look)});
    }

    template <typename Reader, typename Setter>
    QWidget* pushToggle(std::string title, std::string icon, PaletteColor color, Reader isOn, Setter setter) {
        return korvane::pushToggle(*this, {.title = std::move(title),
                                           .icon = std::move(icon),
                                           .color = color,
                                           .isOn = reading<bool>(isOn),
                                           .setOn = setting<bool>(setter)});
    }

    /// A switch or a checkbox with its title.
    template <typename Reader, typename Setter>
    QWidget* toggle(std::string title, Reader isOn, Setter setter, ToggleOptions options = {}) {
        return korvane::toggle(*this, {.title = std::move(title),
                                       .isOn = reading<bool>(isOn),
                                       .setOn = setting<bool>(setter),
                                       .options = options});
    }

    template <typename Reader, typename Setter>
    QWidget* slider(std::string name, Reader value, Setter setter, SliderOptions options) {
        return korvane::slider(*this, {.name = std::move(name),
                                       .value = reading<double>(value),
                                       .setValue = setting<double>(setter),
                                       .options = options});
    }

    template <typename Reader, typename Setter>
    QWidget* stepper(std::string name, Reader value, Setter setter, StepperOptions options) {
        return korvane::stepper(*this, {.name = std::move(name),
                                        .value = reading<int>(value),
                                        .setValue = setting<int>(setter),
                                        .options = options});
    }

    /// A stepper behind a label that tells its value.
    template <typename Reader, typename Setter, typename Text>
    QWidget* labelledStepper(std::string name, Reader value, Setter setter, Text text, int labelWidth,
                             StepperOptions options) {
        return korvane::labelledStepper(*this,
                                        {.name = std::move(name),
                                         .value = reading<int>(value),
                                         .setValue = setting<int>(setter),
                                         .options = options},
                                        {.text = reading<std::string>(text), .width = labelWidth});
    }

    /// A single line of text that the user types.
    template <typename Reader, typename Setter>
    QWidget* textField(std::string name, Reader text, Setter setter, TextFieldOptions options = {}) {
        return korvane::textField(*this, {.name = std::move(name),
                                          .text = reading<std::string>(text),
                                          .setText = setting<std::string>(setter),
                                          .options = std::move(options)});
    }

    /// A segment for each case of the enumeration that `reader` reads, with its title. `width` is in pixels
    /// at a 13-pixel body text; 0 stands for what the titles need.
    template <typename Reader, typename Setter>
    QWidget* segmentedPicker(std::string label, Reader reader, Setter setter, int width,
                             SegmentLook look = SegmentLook::even) {
        using E = std::remove_cvref_t<std::invoke_result_t<Reader, const State&>>;
        std::vector<std::string> titles;
        std::vector<std::string> glyphs;
        for (const auto value : allCases<E>) {
            titles.emplace_back(title(value));
            if constexpr (requires { icon(value); }) {
                if (look == SegmentLook::withIcons)
                    glyphs.emplace_back(icon(value));
            }
        }
        auto set = setting<E>(setter);
        return korvane::segmentedPicker(
            *this, {.label = std::move(label),
                    .titles = std::move(titles),
                    .icons = std::move(glyphs),
                    .width = width,
                    .look = look,
                    .selected = [read = reading<E>(reader)] { return static_cast<int>(read()); },
                    .select = [set](int index) { set(static_cast<E>(index)); }});
    }

    /// An editor that shows and changes a text. `placeholder` stands in it while it is empty.
    template <typename Reader, typename Setter, typename Placeholder>
    QWidget* codeEditor(Reader text, Setter setter, Placeholder placeholder, CodeEditorOptions options = {}) {
        return korvane::codeEditor(*this, {.text = referring(text),
                                           .setText = setting<std::string>(setter),
                                           .placeholder = reading<std::string>(placeholder),
                                           .options = options});
    }

    /// An editor that only shows a text, which can be selected and, with the button over its corner, copied.
    template <typename Reader, typename Placeholder>
    QWidget* output(Reader text, Placeholder placeholder, CodeEditorOptions options = {}) {
        options.hasOverlayButton = true;
        auto* editor = korvane::codeEditor(*this, {.text = referring(text),
                                                   .setText = nullptr,
                                                   .placeholder = reading<std::string>(placeholder),
                                                   .options = options});
        auto isEmpty = [read = referring(text)] { return read().empty(); };
        auto* button = copyButton(text, {.look = {.showLabel = false, .isOverlay = true}});
        onRefresh([button, isEmpty] { button->setVisible(!isEmpty()); });
        return overlay(editor, button);
    }

    /// A titled section. The content takes the section's title as its accessible name.
    template <typename Title, typename Icon = std::string>
    QWidget* section(Title title, Icon icon, QWidget* content, QWidget* trailing = nullptr) {
        return korvane::section(*this, reading<std::string>(title), reading<std::string>(icon), content,
                                trailing);
    }

    /// A badge while `reader` reads an `std::optional<StatusBadge>` that holds one.
    template <typename Reader>
    QWidget* statusBadge(Reader reader) {
        return korvane::statusBadge(*this, reading<std::optional<StatusBadge>>(reader));
    }

    template <typename Reader>
    QWidget* caption(Reader text) {
        return korvane::caption(*this, reading<std::string>(text));
    }

    /// A line of text, shortened with an ellipsis where room is short.
    template <typename Text>
    QWidget* label(Text text, Theme::TextStyle style, Theme::Ink ink = Theme::Role::primary,
                   LabelOptions options = {}) {
        return korvane::label(*this, reading<std::string>(text), style, ink, options);
    }

    /// A text of a few lines that can be selected and copied. `name` is for assistive technology.
    template <typename Reader>
    QWidget* selectableText(std::string name, Reader text, SelectableTextOptions options = {}) {
        return korvane::selectableText(
            *this,
            {.name = std::move(name), .text = reading<std::string>(text), .options = std::move(options)});
    }

    /// A message in red while `reader` reads an `std::optional<std::string>` that holds one.
    template <typename Reader>
    QWidget* errorMessage(Reader reader) {
        auto read = reading<std::optional<std::string>>(reader);
        auto* message =
            korvane::selectableText(*this, {.name = "Error",
                                            .text = [read] { return read().value_or(std::string()); },
                                            .options = {.ink = PaletteColor::red, .isTabStop = true}});
        onRefresh([message, read] { message->setVisible(read().has_value()); });
        reportMessages(*this, *message, [read] { return read().value_or(std::string()); });
        return message;
    }

    /// `widget`; what `text` reads is announced to assistive technology whenever it has become another one.
    template <typename Text>
    QWidget* announcing(Text text, QWidget* widget) {
        announceChanges(*this, *widget, reading<std::string>(text));
        return widget;
    }

    /// `widget`; what `text` reads is its description for assistive technology.
    template <typename Text>
    QWidget* described(Text text, QWidget* widget) {
        onRefresh([widget, read = reading<std::string>(text)] { setAccessibleDescription(*widget, read()); });
        return widget;
    }

    /// What an empty place says instead of its content.
    template <typename Text>
    QWidget* emptyPrompt(std::string icon, Text text) {
        return korvane::emptyPrompt(*this, std::move(icon), reading<std::string>(text));
    }

    /// A card with a figure.
    template <typename Value>
    QWidget* statCard(std::string title, Value value, std::string icon, PaletteColor color) {
        return korvane::statCard(*this, std::move(title), reading<std::string>(value), std::move(icon),
                                 color);
    }

    /// `widget`, shown only while `condition` reads true.
    template <typename Condition>
    QWidget* when(Condition condition, QWidget* widget) {
        onRefresh([widget, read = reading<bool>(condition)] { setShown(widget, read()); });
        return widget;
    }

    /// One of two widgets in the same place.
    template <typename Condition>
    QWidget* either(Condition condition, QWidget* yes, QWidget* no) {
        return korvane::either(*this, reading<bool>(condition), yes, no);
    }

    /// A tree of rows that fold. See `TreeRows` for what is read of it.
    template <typename Rows, typename Toggle>
    QWidget* treeView(Rows rows, Toggle toggleRow, std::string prompt) {
        return korvane::treeView(
            *this, [this, rows] { return std::invoke(rows, std::as_const(m_state)); },
            setting<std::size_t>(toggleRow), std::move(prompt));
    }

    /// How a control reads a value.
    template <typename T, typename Reader>
    std::function<T()> reading(Reader reader) {
        if constexpr (std::is_invocable_v<Reader, const State&>)
            return [this, reader] { return T(std::invoke(reader, std::as_const(m_state))); };
        else
            return [value = T(std::move(reader))] { return value; };
    }

    /// How a control reads a text that may be large, without copying it.
    template <typename Reader>
    std::function<const std::string&()> referring(Reader reader) {
        static_assert(std::is_reference_v<std::invoke_result_t<Reader, const State&>>);
        return [this, reader]() -> const std::string& { return std::invoke(reader, std::as_const(m_state)); };
    }

    /// What a control calls to act.
    template <typename Operation>
    std::function<void()> performing(Operation operation) {
        return [this, operation] { perform(operation); };
    }

    /// What a control calls with the value that the user chose.
    template <typename T, typename Setter>
    std::function<void(T)> setting(Setter setter) {
        return [this, setter](T value) { perform(setter, std::move(value)); };
    }

private:
    State m_state;
};

} // namespace korvane
