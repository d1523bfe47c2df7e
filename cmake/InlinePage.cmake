# Makes one self-contained page: the style sheet and the script that the page names are put in
# its place, so that the page opens from a folder with nothing beside it.
#
#   cmake -DPAGE=<page.html> -DCSS=<style.css> -DJS=<script.js> -DOUT=<out.html> -P InlinePage.cmake
#
# The page must name each of them exactly once, on the lines
#   <link rel="stylesheet" href="NAME.css">   and   <script src="NAME.js"></script>
foreach(var PAGE CSS JS OUT)
  if(NOT DEFINED ${var})
    message(FATAL_ERROR "InlinePage: -D${var}=... is missing")
  endif()
endforeach()

file(READ "${PAGE}" page)
file(READ "${CSS}" css)
file(READ "${JS}" js)
get_filename_component(css_name "${CSS}" NAME)
get_filename_component(js_name "${JS}" NAME)

# A closing tag inside the text would end the inlined element early and spill the rest into
# the page as text.
string(TOLOWER "${css}" css_lower)
string(TOLOWER "${js}" js_lower)
string(FIND "${css_lower}" "</style" at)
if(NOT at EQUAL -1)
  message(FATAL_ERROR "InlinePage: ${CSS} holds \"</style\", which would end the inlined style early")
endif()
string(FIND "${js_lower}" "</script" at)
if(NOT at EQUAL -1)
  message(FATAL_ERROR "InlinePage: ${JS} holds \"</script\", which would end the inlined script early")
endif()

function(inline_once tag replacement)
  string(FIND "${page}" "${tag}" first)
  string(FIND "${page}" "${tag}" last REVERSE)
  if(first EQUAL -1 OR NOT first EQUAL last)
    message(FATAL_ERROR "InlinePage: ${PAGE} must hold ${tag} exactly once")
  endif()
  string(REPLACE "${tag}" "${replacement}" page "${page}")
  set(page "${page}" PARENT_SCOPE)
endfunction()

inline_once("<link rel=\"stylesheet\" href=\"${css_name}\">" "<style>\n${css}</style>")
inline_once("<script src=\"${js_name}\"></script>" "<script>\n${js}</script>")

file(WRITE "${OUT}" "${page}")
