/// The screens of the tools. Each function creates a new screen with the default state, which its widget
/// owns.
#pragma once

#include "Models/Tool.h"

class QWidget;

namespace korvane {

struct Services;

QWidget* base64Screen(Services& services);
QWidget* colorPickerScreen(Services& services);
QWidget* hashGeneratorScreen(Services& services);
QWidget* imageConverterScreen(Services& services);
QWidget* jsonFormatterScreen(Services& services);
QWidget* jwtDecoderScreen(Services& services);
QWidget* loremIpsumScreen(Services& services);
QWidget* markdownPreviewScreen(Services& services);
QWidget* numberBaseScreen(Services& services);
QWidget* passwordGeneratorScreen(Services& services);
QWidget* regexTesterScreen(Services& services);
QWidget* textDiffScreen(Services& services);
QWidget* textTransformerScreen(Services& services);
QWidget* timestampScreen(Services& services);
QWidget* urlEncoderScreen(Services& services);
QWidget* uuidGeneratorScreen(Services& services);

/// A new screen of `tool`.
QWidget* toolScreen(Tool tool, Services& services);

} // namespace korvane
