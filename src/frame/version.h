// The version of everything in a release, for code and resource scripts alike.
#pragma once

#define KODRA_VERSION_MAJOR 1
#define KODRA_VERSION_MINOR 0
#define KODRA_VERSION_REVISION 49

// The three as a text, with full stops between them.
#define KODRA_TEXT_OF(x) #x
#define KODRA_DOTTED(major, minor, revision) KODRA_TEXT_OF(major) "." KODRA_TEXT_OF(minor) "." KODRA_TEXT_OF(revision)
#define KODRA_VERSION_TEXT KODRA_DOTTED(KODRA_VERSION_MAJOR, KODRA_VERSION_MINOR, KODRA_VERSION_REVISION)
