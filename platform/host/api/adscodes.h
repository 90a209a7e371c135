// Result types and result codes.
#pragma once

#define RTNONE 5000     ///< no result
#define RTREAL 5001     ///< resval.rreal
#define RTPOINT 5002    ///< resval.rpoint, x and y
#define RTSHORT 5003    ///< resval.rint
#define RTANG 5004      ///< resval.rreal, radians
#define RTSTR 5005      ///< resval.rstring
#define RTENAME 5006    ///< resval.rlname
#define RTPICKS 5007    ///< resval.rlname, a selection set
#define RTORINT 5008    ///< resval.rreal, radians
#define RT3DPOINT 5009  ///< resval.rpoint
#define RTLONG 5010     ///< resval.rlong
#define RTVOID 5014
#define RTLB 5016    ///< list begin
#define RTLE 5017    ///< list end
#define RTDOTE 5018  ///< dotted pair
#define RTNIL 5019
#define RTDXF0 5020  ///< group code 0 in acutBuildList, where 0 itself ends the list
#define RTT 5021

#define RTNORM 5100      ///< success
#define RTERROR (-5001)  ///< some other error
#define RTCAN (-5002)    ///< the user cancelled
#define RTREJ (-5003)    ///< the host refused the request
#define RTKWORD (-5005)  ///< a keyword was entered
