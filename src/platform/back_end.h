// The namespace in which a back end defines the boundary's functions; included by back ends only.
//
// It is `platform` where the core is linked with the back end itself, and `platform::back_end` where the observer
// (observer/) lies between the two.
#pragma once

#ifndef VESK_BACK_END
#define VESK_BACK_END platform
#endif
