#pragma once

#include <QLatin1StringView>

/// What tells the genuine Nestlet app from any other: who made it is checked by its signature.
inline constexpr QLatin1StringView nestletBundleIdentifier{"qx.Nestlet"};
inline constexpr QLatin1StringView expectedTeamIdentifier{"NX7QK2D4TL"};
