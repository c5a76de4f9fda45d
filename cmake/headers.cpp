// Compiles the headers that all targets share; see CompanionRooms.cmake.
