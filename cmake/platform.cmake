# What depends on the system that is built for. A file that is special to one system says so in its
# name; the others' files are left out.
if(WIN32)
  set(system windows)
  set(other_systems "_(linux|gtk)\\.cpp$")
  enable_language(RC)
  add_compile_definitions(UNICODE _UNICODE NOMINMAX)
else()
  set(system linux)
  set(other_systems "_(windows|msw)\\.cpp$")
  # Addresses of other libraries are found at the start and cannot be changed afterwards.
  add_link_options(-Wl,-z,relro,-z,now)
endif()

# sources_of(VARIABLE PATTERN...): the files that are built here.
function(sources_of variable)
  file(GLOB found CONFIGURE_DEPENDS ${ARGN})
  list(FILTER found EXCLUDE REGEX "${other_systems}")
  set(${variable} ${found} PARENT_SCOPE)
endfunction()
