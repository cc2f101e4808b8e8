/// Every shared control in each of its states, side by side.
#pragma once

#include <QWidget>

#include <memory>

namespace korvane {

struct Services;

std::unique_ptr<QWidget> gallery(Services& services);

} // namespace korvane
