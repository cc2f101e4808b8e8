/// Every control of the kit in each of its states, side by side, to be looked at.
#pragma once

#include <QWidget>

#include <memory>

namespace korvane {

struct Services;

std::unique_ptr<QWidget> gallery(Services& services);

} // namespace korvane
