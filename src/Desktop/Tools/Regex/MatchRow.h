/// One line of the match list: what a match or a capture group took, and a button that copies it.
#pragma once

#include "Desktop/Controls/Buttons.h"
#include "Views/Tools/RegexMatches.h"

#include <QWidget>

#include <functional>
#include <string>

namespace korvane {

/// The inset of a row in its card, in pixels at a 13-pixel body text.
inline constexpr int matchCardLeft = 10;

/// The list makes only as many of these as are visible, and has each show one line after another.
class MatchRow final : public QWidget {
public:
    /// `copy` is called with the number of the line whose button is pressed.
    explicit MatchRow(std::function<void(std::size_t)> copy);

    /// Shows the line of that number. `headingWidth` is the room for "Match 1", the same in all rows. The
    /// line's text must stay readable while it is shown.
    void display(std::size_t number, const RegexMatchLine& line, int headingWidth);

    /// Whether the row has the keyboard's position.
    void setCurrent(bool isCurrent);

    QuietButton& copyButton() const { return *m_copy; }

    /// The number of the line that it shows.
    std::size_t number() const { return m_number; }

    /// What assistive technology calls the line.
    static std::string name(const RegexMatchLine& line);

protected:
    void paintEvent(QPaintEvent* event) override;
    bool event(QEvent* event) override;

private:
    void showRest(const QPoint& position);

    std::size_t m_number = 0;
    RegexMatchLine m_line{};
    int m_headingWidth = 0;
    bool m_isCurrent = false;
    bool m_isElided = false;
    QuietButton* m_copy;
};

} // namespace korvane
