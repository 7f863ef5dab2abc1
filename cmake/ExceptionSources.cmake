# The exception tree: one header per class; the plain classes are defined
# together in ExceptionClasses.cpp, the others in a source of their own.
set(VESK_EXCEPTION_SOURCES
  vesk/base/ExceptionClasses.cpp
  vesk/base/ClassNotFoundException.cpp
  vesk/base/Exception.cpp
  vesk/base/InstantiationException.cpp
  vesk/base/win/WinSystemErrorException.cpp
  vesk/io/UnknownCharacterException.cpp
  vesk/io/UnsupportedEncodingException.cpp
  vesk/net/UnknownHostException.cpp
  vesk/util/regex/RegExParseException.cpp
)
