#include "machine/models/com/apartments.h"

namespace machine {

ThreadApartment& CurrentApartment() {
    thread_local ThreadApartment Apartment;
    return Apartment;
}

} // namespace machine
