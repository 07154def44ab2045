// Which function a line of a call stack stands for: by its name on Linux, by its address on Windows, where
// frames have no names.
#ifndef QEL_TESTS_FRAMES_H
#define QEL_TESTS_FRAMES_H

#include <string>

// Whether `frame`, the text of one frame, lies in `function`, whose name is `name`.
bool FrameIsIn(const std::string& frame, const char* name, void (*function)(int));

#endif  // QEL_TESTS_FRAMES_H
