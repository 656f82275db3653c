// The component's version, for its code and its resource script alike.
#pragma once

#define KODRA_VERSION_MAJOR 1
#define KODRA_VERSION_MINOR 0
#define KODRA_VERSION_REVISION 49
