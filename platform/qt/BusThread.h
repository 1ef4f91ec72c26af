#pragma once

namespace platform {

/// In a program with sanitizers, starts the toolkit's thread for buses in such a way that its end is no leak; else
/// nothing. To be called before the toolkit itself uses a bus, from any thread, as often as one likes.
void startBusThread();

}
