/* Everything gvutil exports. */
#ifndef GVUTIL_H
#define GVUTIL_H

#include "gvutil/cli.h"
#include "gvutil/ifname.h"
#include "gvutil/loglevel.h"
#include "gvutil/model.h"
#include "gvutil/onuopt.h"
#include "gvutil/platform.h"
#include "gvutil/range.h"
#include "gvutil/settext.h"
#include "gvutil/sys.h"

#endif
