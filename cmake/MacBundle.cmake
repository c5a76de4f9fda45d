# What the app bundle of the companion says of itself, on macOS. Kept apart from the target, so that
# the test that fills in Info.plist elsewhere does it with the same values.

set(COMPANION_BUNDLE_NAME "Nestlet Companion")
set(COMPANION_BUNDLE_IDENTIFIER "qx.Nestlet.Companion")
set(COMPANION_BUNDLE_TEMPLATE "${CMAKE_SOURCE_DIR}/packaging/macos/Info.plist.in")
set(COMPANION_BUNDLE_ICON "${CMAKE_SOURCE_DIR}/packaging/icon/nestlet-companion.icns")

# Makes `target` an app bundle with icon and Info.plist. Does nothing on other systems.
function(companion_mac_bundle target)
  if(NOT APPLE)
    return()
  endif()
  target_sources(${target} PRIVATE "${COMPANION_BUNDLE_ICON}")
  set_source_files_properties("${COMPANION_BUNDLE_ICON}" PROPERTIES
    MACOSX_PACKAGE_LOCATION Resources)
  set_target_properties(${target} PROPERTIES
    MACOSX_BUNDLE TRUE
    MACOSX_BUNDLE_INFO_PLIST "${COMPANION_BUNDLE_TEMPLATE}"
    MACOSX_BUNDLE_BUNDLE_NAME "${COMPANION_BUNDLE_NAME}"
    MACOSX_BUNDLE_GUI_IDENTIFIER "${COMPANION_BUNDLE_IDENTIFIER}"
    MACOSX_BUNDLE_BUNDLE_VERSION "${NESTLET_COMPANION_BUILD}"
    MACOSX_BUNDLE_SHORT_VERSION_STRING "${PROJECT_VERSION}"
    MACOSX_BUNDLE_ICON_FILE nestlet-companion.icns)
endfunction()
