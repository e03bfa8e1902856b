# The program in the README is examples/host.cpp, which is built and run.
file(READ ${README} readme)
file(READ ${PROGRAM} program)
string(FIND "${readme}" "```cpp\n${program}```\n" place)
if(place EQUAL -1)
  message(FATAL_ERROR "The C++ program in ${README} is not the text of ${PROGRAM}.")
endif()
