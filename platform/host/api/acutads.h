// Utilities of the host interface: result buffers, printing, texts.
#pragma once

#include "acutmem.h"
#include "adsdef.h"
#include "adscodes.h"

/// A cleared buffer of a result type, to be released with acutRelRb. Null when memory is out.
struct resbuf* acutNewRb(int type);
/// Releases a whole list with its texts. RTNORM.
int acutRelRb(struct resbuf* list);

/// Prints on the command line, formatted as by wprintf with the host's rules: %s is a wide text. RTNORM.
int acutPrintf(const ACHAR* format, ...);

/// 1 when the text matches the wildcard pattern: # digit, @ letter, . neither, * any run, ? any character, ~ at the
/// start of an alternative negates it, [..] and [~..] sets with ranges, ` takes the next one literally, "," separates
/// alternatives. Case counts.
int acutWcMatch(const ACHAR* text, const ACHAR* pattern);
