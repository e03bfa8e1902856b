// The simulated machine's WMI repository behind the COM objects of the tests.
#pragma once

#include "scripted_wmi.h"

#include <memory>

namespace twin {

std::shared_ptr<test::WmiService> MachineWmiService();

} // namespace twin
