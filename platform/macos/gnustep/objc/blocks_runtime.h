#pragma once

// GNUstep's headers include this when blocks are on. The type check needs nothing of it.
