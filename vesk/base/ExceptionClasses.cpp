// The plain exception classes: each adds only its name, descriptor and
// constructor shape to its base (see vesk/base/ExceptionClass.h). Classes
// with data of their own keep a source file each.
#include "vesk/base/ArrayIndexOutOfBoundsException.h"
#include "vesk/base/ClassCastException.h"
#include "vesk/base/IllegalArgumentException.h"
#include "vesk/base/IllegalComparisonException.h"
#include "vesk/base/IllegalStateException.h"
#include "vesk/base/MemoryException.h"
#include "vesk/base/NullReferenceException.h"
#include "vesk/base/NumberFormatException.h"
#include "vesk/base/SynchronizationException.h"
#include "vesk/base/TimeoutException.h"
#include "vesk/io/AccessDeniedException.h"
#include "vesk/io/CharConversionException.h"
#include "vesk/io/IOException.h"
#include "vesk/io/InterruptedIOException.h"
#include "vesk/io/XMLException.h"
#include "vesk/net/SocketException.h"
#include "vesk/util/EmptyQueueException.h"
#include "vesk/util/EmptyStackException.h"
#include "vesk/util/NoSuchElementException.h"

VESK_IMPLEMENT_EXCEPTION(vesk::base, CArrayIndexOutOfBoundsException, vesk::base::CException, None)
VESK_IMPLEMENT_EXCEPTION(vesk::base, CClassCastException, vesk::base::CException, None)
VESK_IMPLEMENT_EXCEPTION(vesk::base, CIllegalArgumentException, vesk::base::CException, Description)
VESK_IMPLEMENT_EXCEPTION(vesk::base, CIllegalComparisonException, vesk::base::CException,
                         DescriptionMessage)
VESK_IMPLEMENT_EXCEPTION(vesk::base, CIllegalStateException, vesk::base::CException,
                         DescriptionMessage)
VESK_IMPLEMENT_EXCEPTION(vesk::base, CMemoryException, vesk::base::CException, None)
VESK_IMPLEMENT_EXCEPTION(vesk::base, CNullReferenceException, vesk::base::CException, None)
VESK_IMPLEMENT_EXCEPTION(vesk::base, CNumberFormatException, vesk::base::CException,
                         DescriptionMessage)
VESK_IMPLEMENT_EXCEPTION(vesk::base, CSynchronizationException, vesk::base::CException,
                         DescriptionMessage)
VESK_IMPLEMENT_EXCEPTION(vesk::base, CTimeoutException, vesk::base::CSynchronizationException,
                         DescriptionMessage)
VESK_IMPLEMENT_EXCEPTION(vesk::io, CAccessDeniedException, vesk::io::CIOException,
                         DescriptionMessage)
VESK_IMPLEMENT_EXCEPTION(vesk::io, CCharConversionException, vesk::io::CIOException,
                         DescriptionMessage)
VESK_IMPLEMENT_EXCEPTION(vesk::io, CIOException, vesk::base::CException, DescriptionMessage)
VESK_IMPLEMENT_EXCEPTION(vesk::io, CInterruptedIOException, vesk::io::CIOException,
                         DescriptionMessage)
VESK_IMPLEMENT_EXCEPTION(vesk::io, CXMLException, vesk::io::CIOException, DescriptionMessage)
VESK_IMPLEMENT_EXCEPTION(vesk::net, CSocketException, vesk::io::CIOException, DescriptionMessage)
VESK_IMPLEMENT_EXCEPTION(vesk::util, CEmptyQueueException, vesk::base::CException, None)
VESK_IMPLEMENT_EXCEPTION(vesk::util, CEmptyStackException, vesk::base::CException, None)
VESK_IMPLEMENT_EXCEPTION(vesk::util, CNoSuchElementException, vesk::base::CMemoryException, None)
