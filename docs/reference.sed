# For doxygen: the comment at the top of a header is the file's, and lines keep their numbers.
1s,^/// ,/// @file\
/// ,
1s,^#pragma once$,/// @file,
/^#pragma once$/d
