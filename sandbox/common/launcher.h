#pragma once

#include "sandbox/common/appbundle.h"
#include "sandbox/common/processes.h"
#include "sandbox/common/standinmac.h"

// How programs of the stand-in start each other.

/// Starts the application's program with the environment that the system gives one, and leaves it
/// alone. `anchor` is where on the screen it was asked for, as an x coordinate. False when it
/// cannot be started.
bool launch(const StandInMac &mac, const AppBundle &app, int anchor);

/// Asks a running panel to show itself above `anchor`. A program that would not know what is asked
/// of it is left alone.
void bringForward(const StandInProcess &process, int anchor);

/// Opens a file the way the Dock does: an application is launched, or comes forward when it runs.
/// False when it is no application that can be launched.
bool openLikeDock(const StandInMac &mac, const QString &path, int anchor);
