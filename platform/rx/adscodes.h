// Result types and result codes of the host's C interface.
#pragma once

enum {
    RTNONE = 5000,
    RTREAL = 5001,
    RTPOINT = 5002,   // 2D
    RTSHORT = 5003,
    RTANG = 5004,
    RTSTR = 5005,
    RTENAME = 5006,
    RTPICKS = 5007,
    RTORINT = 5008,
    RT3DPOINT = 5009,
    RTLONG = 5010,
    RTVOID = 5014,
    RTLB = 5016,
    RTLE = 5017,
    RTDOTE = 5018,
    RTNIL = 5019,
    RTDXF0 = 5020,   // stands for group 0 where 0 ends a list
    RTT = 5021,
    RTRESBUF = 5023,
    RTMODAL = 5027
};

enum {
    RTNORM = 5100,
    RTERROR = -5001,
    RTCAN = -5002,
    RTREJ = -5003,
    RTFAIL = -5004,
    RTKWORD = -5005,
    RTINPUTTRUNCATED = -5008
};

// Bits of acedInitGet().
enum {
    RSG_NONULL = 0x0001,
    RSG_NOZERO = 0x0002,
    RSG_NONEG = 0x0004,
    RSG_NOLIM = 0x0008,
    RSG_GETZ = 0x0010,
    RSG_DASH = 0x0020,
    RSG_2D = 0x0040,
    RSG_OTHER = 0x0080,
    RSG_DDISTFIRST = 0x0100,
    RSG_TRACKUCS = 0x0200,
    RSG_NOORTHO = 0x0400,
    RSG_NOOSNAP = 0x0800
};
