#pragma once

class QWidget;

/// Makes a window that is larger than the free part of its screen, frame included, fit there; any
/// other window keeps its size. Call before the window is shown.
void fitToScreen(QWidget& window);
