// The host's functions for commands: questions to the user, messages, system variables, other commands.
// Results are RTNORM, RTCAN (the user cancelled), RTERROR, RTNONE (Return alone, where acedInitGet allows it) and
// RTKWORD. Strings in result buffers are the caller's, to be released with acad_free or acutDelString.
#pragma once

#include <windows.h>

#include "adsdef.h"
#include "adscodes.h"
#include "acutads.h"
#include "acedsel.h"

#define ACED_GETFILE_NEW 1            ///< a file to be made: an existing one is replaced only after a question
#define ACED_GETFILE_ANY_EXTENSION 4  ///< a typed extension is kept whatever it is

/// Asks for a file name. RTNORM with result->restype RTSTR and the full path in rstring, or RTERROR when the user
/// cancelled. `defawlt`, `title` and `ext` (without a dot; several with ";") may be null.
int acedGetFileD(const ACHAR* title, const ACHAR* defawlt, const ACHAR* ext, int flags, struct resbuf* result);

/// A message box over the main window. RTNORM.
int acedAlert(const ACHAR* message);

/// Read and set a system variable by name, in any case. RTERROR for an unknown name; when setting also for a value of
/// the wrong type or out of range, and for a read-only variable.
int acedGetVar(const ACHAR* sym, struct resbuf* result);
int acedSetVar(const ACHAR* sym, const struct resbuf* value);

#define ACED_ENV_LENGTH 512  ///< characters of a value, its terminator included
/// The value that the user set in the program's environment, into a buffer of ACED_ENV_LENGTH characters. RTERROR when
/// there is none or a longer one.
int acedGetEnv(const ACHAR* sym, ACHAR* var);

#define RSG_NONULL 1   ///< Return alone is not accepted
#define RSG_NOZERO 2   ///< zero is not accepted
#define RSG_NONEG 4    ///< negative numbers are not accepted
#define RSG_OTHER 128  ///< any other text is an answer: RTKWORD

/// Prepares the next acedGet... call (and only that one). Keywords are separated by blanks; the capitals of one are its
/// abbreviation.
int acedInitGet(int value, const ACHAR* keywords);
/// The keyword or text after RTKWORD. `input` holds at least 133 characters.
int acedGetInput(ACHAR* input);
/// Ask for a point. From `point`, where it is not null, a line follows the pointer, or a rectangle for acedGetCorner.
int acedGetPoint(const ads_point point, const ACHAR* prompt, ads_point result);
int acedGetCorner(const ads_point point, const ACHAR* prompt, ads_point result);
/// Ask for a number, or for one of the keywords of acedInitGet, which comes whole into at least 133 characters.
int acedGetReal(const ACHAR* prompt, ads_real* result);
int acedGetKword(const ACHAR* prompt, ACHAR* result);

/// Kinds of input that acedGrRead reports.
#define ACED_GR_KEYBOARD 2
#define ACED_GR_PICK 3
#define ACED_GR_MOVE 5

/// Waits for one input event. Bit 1 of `track` reports pointer movement, bit 8 keeps the message on a cancel away. Only
/// a movement and a pick carry a point: result->resval.rpoint, with restype RT3DPOINT. A key comes in resval.rint, with
/// RTSHORT; what else `result` holds is no point then. A cancel leaves `result` as it was.
int acedGrRead(int track, int* type, struct resbuf* result);
/// A temporary vector in the drawing view; colour -1 complements what is there, so that drawing it again erases it.
int acedGrDraw(const ads_point from, const ads_point to, int colour, int highlight);

/// Runs a command of the host with the answers that follow, pairs of a result type and a value ended by RTNONE (or 0).
int acedCommand(int rtype, ...);

/// Shows what was changed in the drawing meanwhile, while a dialog is up.
void acedUpdateDisplay();

/// The host's main window; null where there is none.
HWND adsw_acadMainWnd();
