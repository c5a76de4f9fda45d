// Compiles the headers that all tests share; see CMakeLists.txt.
