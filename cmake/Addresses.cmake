# Where users find the project: the one place for it. The addresses are made up (no ".invalid" exists)
# until the project has a home; what is given to others must have real ones.
set(LUMBRIX_HOMEPAGE "https://lumbrix.invalid" CACHE STRING "Address of the project's home page")
set(LUMBRIX_BUGS "" CACHE STRING "Where bugs are reported; if empty, issues/ below the home page")
set(LUMBRIX_PICTURES "" CACHE STRING
  "Address of the folder docs/pictures; if empty, docs/pictures/ below the home page")
set(LUMBRIX_MAINTAINER "" CACHE STRING "Who answers for a package, as its own files say it")
option(LUMBRIX_RELEASE "Build what is given to others, which needs addresses that exist" OFF)

if(NOT LUMBRIX_BUGS)
  set(LUMBRIX_BUGS "${LUMBRIX_HOMEPAGE}/issues")
endif()
if(NOT LUMBRIX_PICTURES)
  set(LUMBRIX_PICTURES "${LUMBRIX_HOMEPAGE}/docs/pictures")
endif()
if(LUMBRIX_RELEASE AND
    "${LUMBRIX_HOMEPAGE} ${LUMBRIX_BUGS} ${LUMBRIX_PICTURES} ${LUMBRIX_MAINTAINER}" MATCHES "\\.invalid")
  message(FATAL_ERROR "A release needs addresses that exist: put the project's home page into "
    "LUMBRIX_HOMEPAGE (cmake/Addresses.cmake) and, for a Debian package, your name and address into "
    "debian/control and the newest entry of debian/changelog.")
endif()
