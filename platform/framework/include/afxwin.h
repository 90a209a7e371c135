// The windows of the framework, its drawing objects and its program object.
#pragma once

#include "afx.h"
#include "afxapp_.h"
#include "afxcmdtarget_.h"
#include "afxctrls_.h"
#include "afxdc_.h"
#include "afxdd_.h"
#include "afxdlg_.h"
#include "afxdll_.h"
#include "afxgdiobj_.h"
#include "afxgeom_.h"
#include "afxmenu_.h"
#include "afxmsg_.h"
#include "afxres.h"
#include "afxtempl.h"
#include "afxwnd_.h"
