/// Where pictures from other programs can be dropped.
#pragma once

#include "Desktop/Kit/Layout.h"
#include "Views/Tools/ImageConverterView.h"

#include <functional>
#include <initializer_list>

class QMimeData;
class QWidget;

namespace korvane {

class ViewCore;

struct DropTargetParts {
    std::function<void(bool)> setTargeted; ///< whether something that can be dropped is over it
    std::function<void(DroppedItems)> drop;
};

/// Takes pictures that are dropped on `content`: files, or the picture itself.
QWidget* dropTarget(DropTargetParts parts, QWidget* content);

/// A surface with a dashed outline around `items`, which stand in its middle; it lights up while
/// `isTargeted`.
QWidget* dropZone(ViewCore& view, std::function<bool()> isTargeted, std::initializer_list<Item> items);

/// What is in a drag; empty if none of it can be a picture. A file counts whatever its name.
DroppedItems droppedItems(const QMimeData& data);

} // namespace korvane
