/// The two sets of rules by which streams are read and written.
#pragma once

/// Which rules a stream is read and written by. docs/conformance.md shows them side by side.
enum EStreamRules : int
{
    STREAM_RULES_CLASSIC = 0, ///< The library's own, which hosts of it depend on. The default.
    STREAM_RULES_STANDARD = 1 ///< Those of PS3.5 and PS3.10; a rewrite keeps the object as it is.
};
