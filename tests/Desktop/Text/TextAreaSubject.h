/// Shared by the tests of the text area: a visible control that counts its reports, and a fixture in which
/// every warning of Qt is a failure.
#pragma once

#include "Desktop/Text/TextArea.h"

#include <QApplication>
#include <QClipboard>
#include <QImage>
#include <QTest>
#include <gtest/gtest.h>

namespace korvane {

inline constexpr int lineHeight = 21;

/// A visible text area that counts its reports. Its pieces are short by default, so that there are many
/// seams.
struct Subject {
    explicit Subject(int maxPiece = 8, int width = 400) : area(nullptr, maxPiece) {
        area.setStyle({.font = QFont(QStringLiteral("monospace")),
                       .lineHeight = lineHeight,
                       .text = Qt::black,
                       .placeholder = Qt::black,
                       .number = Qt::gray,
                       .selection = Qt::green,
                       .inset = {8, 8, 40, 8}});
        area.resize(width, 300);
        area.show();
        area.onEdit = [this](const Rope& text) {
            ++edits;
            reported = text.string();
        };
    }

    void select(std::size_t from, std::size_t to) { area.select({from, to}); }

    void press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
        QTest::keyClick(&area, key, modifiers);
    }

    void type(const QString& text) {
        QKeyEvent event(QEvent::KeyPress, 0, Qt::NoModifier, text);
        QApplication::sendEvent(&area, &event);
    }

    void paste(std::string_view text) {
        QApplication::clipboard()->setText(qtString(text));
        area.paste();
    }

    /// Qt's conversion drops a byte-order mark at the start of a text only.
    static QString qtString(std::string_view text) {
        return QString::fromStdString("x" + std::string(text)).sliced(1);
    }

    std::string copied() {
        area.selectAll();
        area.copy();
        return QApplication::clipboard()->text().toStdString();
    }

    std::vector<std::size_t> numbers() const {
        std::vector<std::size_t> values;
        for (const auto& visible : area.visibleNumbers())
            values.push_back(visible.number);
        return values;
    }

    QImage picture() { return area.grab().toImage(); }

    TextArea area;
    int edits = 0;
    std::string reported{};
};

using TextAreaTest = testing::Test;

} // namespace korvane
