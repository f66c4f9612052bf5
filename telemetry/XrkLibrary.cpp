#include "telemetry/XrkLibrary.h"

XrkLibrary::XrkLibrary(const char*) {}

XrkLibrary::~XrkLibrary() = default;
