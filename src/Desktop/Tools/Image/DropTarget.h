/// Where pictures from other programs can be dropped.
#pragma once

#include "Desktop/Binding/Action.h"
#include "Desktop/Binding/Reader.h"
#include "Desktop/Layout/Stack.h"
#include "Views/Tools/ImageConverterView.h"

#include <initializer_list>

class QMimeData;
class QWidget;

namespace korvane {

/// `content`, on which pictures can be dropped: files, or the picture itself. `setTargeted` is told whether
/// something that can be dropped is over it.
QWidget* dropTarget(Store& store, const Action<bool>& setTargeted, const Action<DroppedItems>& drop,
                    QWidget* content);

/// A surface with a dashed outline around `items`, which stand in its middle; it lights up while
/// `isTargeted`.
QWidget* dropZone(Store& store, const Reader<bool>& isTargeted, std::initializer_list<Item> items);

/// What is in a drag; empty if none of it can be a picture. A file counts whatever its name.
DroppedItems droppedItems(const QMimeData& data);

} // namespace korvane
