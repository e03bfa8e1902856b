// The DLL's variables of which each thread has one, the C++ runtime's among them.
#pragma once

/// Frees those of this thread and their place with the operating system, where the DLL is unloaded.
void FreeThreadVariables();
