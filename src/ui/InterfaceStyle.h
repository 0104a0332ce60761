#pragma once

namespace tarvel {

/// Gives the application its widget style: flat controls that take all colours from the palette, so that they
/// follow the appearance of the window they stand in. Once, after the QApplication is made.
void installInterfaceStyle();

}  // namespace tarvel
