# The program that the README shows is the one that is built and run: examples/host.cpp, to the letter.
file(READ ${README} readme)
file(READ ${PROGRAM} program)
string(FIND "${readme}" "```cpp\n${program}```\n" place)
if(place EQUAL -1)
  message(FATAL_ERROR "The C++ program in ${README} is not the text of ${PROGRAM}.")
endif()
