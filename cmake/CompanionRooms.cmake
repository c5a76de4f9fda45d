# One target per room of the house. A room's headers can be found only by the targets that link it,
# so that an include that goes the wrong way does not compile.

set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_EXPORT_COMPILE_COMMANDS ON)
set(CMAKE_RUNTIME_OUTPUT_DIRECTORY "${CMAKE_BINARY_DIR}/bin")
if(NOT CMAKE_BUILD_TYPE)
  set(CMAKE_BUILD_TYPE Release)
endif()

# What is cached counts for every clone, and precompiled headers do not stand in its way.
find_program(CCACHE ccache)
if(CCACHE)
  set(CMAKE_CXX_COMPILER_LAUNCHER "${CMAKE_COMMAND}" -E env "CCACHE_BASEDIR=${CMAKE_SOURCE_DIR}"
    CCACHE_NOHASHDIR=1 CCACHE_SLOPPINESS=pch_defines,time_macros "${CCACHE}")
endif()

# Some 150 tests are linked: with mold in half a minute, without in two.
include(CheckLinkerFlag)
check_linker_flag(CXX -fuse-ld=mold COMPANION_HAS_MOLD)
if(COMPANION_HAS_MOLD)
  add_link_options(-fuse-ld=mold)
endif()

# Compiler options and definitions of our own code, in one place.
add_library(companion_options INTERFACE)
target_compile_options(companion_options INTERFACE -Wall -Wextra -Wconversion -Wshadow -Werror)
target_compile_definitions(companion_options INTERFACE
  QT_NO_CAST_FROM_ASCII QT_NO_CAST_TO_ASCII QT_NO_URL_CAST_FROM_STRING QT_NO_KEYWORDS
  QT_NO_CAST_FROM_BYTEARRAY QT_STRICT_ITERATORS QT_USE_QSTRINGBUILDER
  QT_DISABLE_DEPRECATED_BEFORE=0x060400)
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
  # GCC 12 reports uninitialised coroutine frames and string bounds that are not there.
  target_compile_options(companion_options INTERFACE -Wno-error=maybe-uninitialized
    -Wno-error=stringop-overflow -Wno-error=stringop-overread -Wno-error=array-bounds
    -Wno-error=restrict)
  # To collect garbage takes a tenth of a compilation; without, one needs less than half a gigabyte.
  target_compile_options(companion_options INTERFACE "SHELL:--param ggc-min-heapsize=500000")
endif()
if(COMPANION_SANITIZE)
  target_compile_options(companion_options INTERFACE
    -fsanitize=${COMPANION_SANITIZE} -fno-omit-frame-pointer -fno-sanitize-recover=all)
  target_link_options(companion_options INTERFACE -fsanitize=${COMPANION_SANITIZE})
endif()

# companion_read_headers_once(<target>)
# Half of the compile time of our own code is the same headers: they are read once for all targets.
# Each source still includes what it uses; clang-tidy compiles it without these.
function(companion_read_headers_once target)
  if(NOT TARGET companion_headers)
    add_library(companion_headers OBJECT "${CMAKE_SOURCE_DIR}/cmake/headers.cpp")
    target_link_libraries(companion_headers PRIVATE companion_options QCoro::Core Qt6::Core)
    target_precompile_headers(companion_headers PRIVATE
      <QByteArray> <QCoreApplication> <QCoroTask> <QDir> <QFileInfo> <QHash> <QList> <QLocale> <QObject>
      <QPointer> <QSet> <QString> <QStringList> <QTimer> <QUrl> <QUuid> <QVariant>
      <algorithm> <array> <chrono> <functional> <memory> <optional> <vector>)
  endif()
  target_precompile_headers(${target} REUSE_FROM companion_headers)
endfunction()

# companion_room(<room> SOURCES ... [LINK ...] [PRIVATE_LINK ...])
# Makes the static library companion_<room> from the files of this folder. Whoever links it can
# include "<room>/file.h", through a folder that holds nothing but a link to this one. A target whose
# classes need moc asks for AUTOMOC itself: most do not, and for those it is dear.
function(companion_room room)
  cmake_parse_arguments(PARSE_ARGV 1 arg "" "" "SOURCES;LINK;PRIVATE_LINK")
  set(target companion_${room})
  add_library(${target} STATIC ${arg_SOURCES})
  companion_export_headers(${target} ${room})
  target_link_libraries(${target} PUBLIC companion_options ${arg_LINK} PRIVATE ${arg_PRIVATE_LINK})
  companion_read_headers_once(${target})
endfunction()

# Makes the headers of this folder known as "<room>/file.h" to those who link `target`.
function(companion_export_headers target room)
  set(include_dir "${CMAKE_BINARY_DIR}/rooms/${room}")
  file(MAKE_DIRECTORY "${include_dir}")
  file(CREATE_LINK "${CMAKE_CURRENT_SOURCE_DIR}" "${include_dir}/${room}" SYMBOLIC)
  get_target_property(type ${target} TYPE)
  if(type STREQUAL "INTERFACE_LIBRARY")
    target_include_directories(${target} INTERFACE "${include_dir}")
  else()
    target_include_directories(${target} PUBLIC "${include_dir}")
  endif()
endfunction()

option(COMPANION_COMPILED_QML "Compile the QML files into the program; without, they build at once" ON)
set(companion_qml_options "") # of every module
if(NOT COMPANION_COMPILED_QML)
  list(APPEND companion_qml_options NO_CACHEGEN)
endif()

# The C++ that Qt generates from a module's QML files is not ours to warn about, and most of its
# compile time is the same headers: it is compiled many files at a time.
function(companion_allow_generated_qml_code target)
  get_target_property(sources ${target} SOURCES)
  foreach(source ${sources})
    if(NOT source MATCHES "\\.rcc/qmlcache/")
      set_source_files_properties("${source}" PROPERTIES SKIP_UNITY_BUILD_INCLUSION ON)
    endif()
  endforeach()
  set(ignored "")
  foreach(warning shadow conversion unused-parameter unused-variable)
    string(APPEND ignored "#pragma GCC diagnostic ignored \"-W${warning}\"\n")
  endforeach()
  set_target_properties(${target} PROPERTIES
    UNITY_BUILD ON UNITY_BUILD_CODE_BEFORE_INCLUDE "${ignored}")
  list(FILTER sources INCLUDE REGEX "_qmltyperegistrations\\.cpp")
  set_source_files_properties(${sources} PROPERTIES
    COMPILE_OPTIONS "-Wno-shadow;-Wno-conversion;-Wno-unused-parameter;-Wno-unused-variable")
endfunction()
