#pragma once

// An event that waits on Foundation's run loop, as the toolkit's own events do on a Mac.

void postToRunLoop(bool *wasHandled);
void turnRunLoop();
