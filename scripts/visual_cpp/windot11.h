// The Windows SDK's header needs what wlanapi.h includes before it.
#pragma once

#ifndef _INC_WLANAPI
#error include wlanapi.h in place of windot11.h
#endif
#include_next <windot11.h>
