/* Everything gvutil exports. */
#ifndef GVUTIL_H
#define GVUTIL_H

#include "gvutil/alarm.h"
#include "gvutil/ber.h"
#include "gvutil/cli.h"
#include "gvutil/ifname.h"
#include "gvutil/loglevel.h"
#include "gvutil/model.h"
#include "gvutil/onuopt.h"
#include "gvutil/platform.h"
#include "gvutil/range.h"
#include "gvutil/settext.h"
#include "gvutil/stats.h"
#include "gvutil/sys.h"
#include "gvutil/sysport.h"

#endif
