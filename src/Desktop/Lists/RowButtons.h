/// The buttons over a list's visible rows, each of which copies what its row holds and says so for a moment.
/// There are only as many as rows are seen: the button of a row that is out of sight serves another one.
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
    /// Tells a row from all that there are or have been, wherever it stands by now.
    std::function<std::string(int row)> identity;
    /// The part of a row, where that is given, at the right end of which the button is.
    std::function<QRect(const QRect& row)> place;
    bool isSecret = false;         ///< what is copied is marked as one that is not to be kept
    bool isTabStop = true;         ///< else the list alone serves the keyboard
    bool onlyNewestSpeaks = false; ///< pressing one ends what another one says
};

class RowButtons final : public QObject {
public:
    RowButtons(RowList& list, RowButtonSource source);
    ~RowButtons() override;

    /// Gives each visible row its button, which it keeps while it stays in sight.
    void place();

    /// None where the row is out of sight.
    QuietButton* of(int row) const;

    /// Does what the button of a row does, which may be out of sight.
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
