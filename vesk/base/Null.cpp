#include "vesk/base/Null.h"

namespace vesk {
const base::CNull null;
}
