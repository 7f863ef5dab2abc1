/// \file
/// Throws an exception of the library with its throw site. The source is the
/// path of the throwing file as clients see it in reports, without extension
/// ("vesk/io/XMLTextWriter"); the line is the line of the throw.
#ifndef VESK_PLATFORM_THROW_H
#define VESK_PLATFORM_THROW_H

/// VESK_THROW(source, ExceptionClass, constructor arguments after file and line...)
#define VESK_THROW(source, ExceptionClass, ...) throw ExceptionClass(source, __LINE__, ##__VA_ARGS__)

#endif
