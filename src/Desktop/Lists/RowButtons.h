/// The copy buttons over a list's visible rows. Only visible rows have one: the button of a row that scrolls
/// out is reused.
#pragma once

#include "Views/Components/CopyButton.h"

#include <QObject>
#include <QRect>

#include <functional>
#include <map>
#include <memory>
#include <string>
#include <vector>

namespace korvane {

class QuietButton;
class RowList;
class Store;

struct RowButtonSource {
    Store& store;
    std::function<std::string(int row)> text;    ///< what is copied
    std::function<std::string(int row)> subject; ///< what the button acts on, for its name
    /// Identifies a row independently of its position, also among earlier rows.
    std::function<std::string(int row)> identity;
    /// The area of a row at whose right end the button is; the whole row if not given.
    std::function<QRect(const QRect& row)> place;
    bool isSecret = false;         ///< copied texts are marked as secret
    bool isTabStop = true;         ///< otherwise only the list takes the keyboard focus
    bool onlyNewestSpeaks = false; ///< pressing one resets the "Copied!" of another
};

class RowButtons final : public QObject {
public:
    RowButtons(RowList& list, RowButtonSource source);
    ~RowButtons() override;

    /// Gives each visible row a button, which it keeps while it is visible.
    void place();

    /// Null if the row is not visible.
    QuietButton* of(int row) const;

    /// Presses the button of a row, visible or not.
    void copy(int row);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    struct Shown {
        int row;
        std::string identity;
        QuietButton* button;
    };

    int rowOf(const QObject* button) const;
    QuietButton* take();
    void release(QuietButton* button);
    void show(const Shown& shown) const;

    RowList& m_list;
    RowButtonSource m_source;
    std::vector<QuietButton*> m_spare{};
    std::vector<Shown> m_shown{};
    std::map<std::string, std::shared_ptr<CopyButton>> m_pressed{}; ///< by identity, while they say so
    std::vector<std::unique_ptr<QuietButton>> m_all{};              ///< destroyed before what they ask
};

} // namespace korvane
