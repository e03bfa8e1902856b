// The ways in which the library's exports are called.
#pragma once

#include "exports/answer.h"
#include "terminal/system.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <typeinfo>

namespace tool {

struct Export;

/// What the command line gives to a call.
struct CallInputs {
    std::string argument;
    std::uint8_t initCom = 1;
};

struct Shape {
    /// The type of a pointer to such an export.
    const std::type_info* type;
    /// The declaration in C, with NAME for the export's name.
    std::string_view declaration;
    /// What the user has to give, in capitals; empty for nothing.
    std::string_view argument;
    /// Calls the export. Throws Trouble where the argument is none for it.
    Answer (*call)(Address address, const Export& row, const CallInputs& inputs);
};

namespace shape {

extern const Shape Nothing;       // ShutdownSondrel
extern const Shape Signed;        // most radio readings
extern const Shape Unsigned;      // the EC's numbers
extern const Shape Float;         // Battery_Read_ASOC
extern const Shape Double;        // CPU_ReadCPUUsage
extern const Shape NarrowText;    // a buffer of a stated size
extern const Shape WideText;      // a buffer as large as the text
extern const Shape WideTextCom;   // the same, with initCom
extern const Shape SignedCom;     // a number, with initCom
extern const Shape SetNumberCom;  // a number given, with initCom
extern const Shape SetByteCom;    // a byte given, with initCom
extern const Shape SetPathCom;    // a path given, with initCom
extern const Shape ReadBytes;     // a field of raw bytes
extern const Shape WriteBytes;    // a field of raw bytes given
extern const Shape ProcessorLeaf; // CPU_ReadCpuId
extern const Shape StringObject;  // a std::string by value
extern const Shape AddOne;        // wmiadd

} // namespace shape
} // namespace tool
