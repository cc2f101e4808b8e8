/// The targets for dropping pictures from other programs.
#pragma once

#include "Desktop/Binding/Action.h"
#include "Desktop/Binding/Reader.h"
#include "Desktop/Layout/Stack.h"
#include "Views/Tools/ImageConverterView.h"

#include <initializer_list>

class QMimeData;
class QWidget;

namespace korvane {

/// `content`, on which pictures can be dropped: files, or the picture itself. `setTargeted` is called with
/// whether an acceptable drag is over it.
QWidget* dropTarget(Store& store, const Action<bool>& setTargeted, const Action<DroppedItems>& drop,
                    QWidget* content);

/// A surface with a dashed outline around `items`; it is highlighted while `isTargeted` is true.
QWidget* dropZone(Store& store, const Reader<bool>& isTargeted, std::initializer_list<Item> items);

/// The pictures and files in a drag; empty if it has none. Files are accepted whatever their names.
DroppedItems droppedItems(const QMimeData& data);

} // namespace korvane
