/// The bar that searches the text of a pane. It is inside the top edge of the pane, above the text.
#pragma once

#include "Desktop/Binding/Store.h"
#include "Desktop/Text/TextArea.h"
#include "Utilities/Text/TextMarks.h"

#include <QWidget>

namespace korvane {

class LineEdit;

class FindBar final : public QWidget {
public:
    /// Searches `area`, in which it marks the hits. While a part of the bar has the focus, the ring is around
    /// `pane`.
    FindBar(Services& services, TextArea& area, QWidget& pane);

    ~FindBar() override;

    FindBar(const FindBar&) = delete;
    FindBar& operator=(const FindBar&) = delete;

    /// Shows the bar and moves the focus into it. What is selected in the text is searched for.
    void open();

    /// Searches the text again, which has changed.
    void followText();

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    void addControls(QWidget& pane);
    void addShortcuts(QWidget& pane);
    void showMarks(TextMarkLayer layer, TextMarks& shown, const TextMarks& marks);
    void refresh();

    TextArea& m_area;
    Store m_store;
    LineEdit* m_field = nullptr;
    std::size_t m_shownRequest = 0;
    TextMarks m_shownHits{};
    TextMarks m_shownCurrent{};
};

} // namespace korvane
