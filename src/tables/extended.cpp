#include "tables/extended.h"

namespace zelk::tables {

const float _rop_rcp_table_256[256] = {
#include "tables/extended_rcp.inc"
};

const double _rop_double_rcp_table_256[256] = {
#include "tables/extended_double_rcp.inc"
};

const LoHi _rop_log_table_256[256] = {
#include "tables/extended_log.inc"
};

const HiLo _rop_logl_table_256[256] = {
#include "tables/extended_logl.inc"
};

const HiLo _rop_expl_table_256[257] = {
#include "tables/extended_expl.inc"
};

const HiLo _rop_atanl_table_128[513] = {
#include "tables/extended_atanl.inc"
};

const HiLo _rop_atandl_table_128[513] = {
#include "tables/extended_atandl.inc"
};

const SinCos _rop_sindl_cosdl_table[90] = {
#include "tables/extended_sindl_cosdl.inc"
};

} // namespace zelk::tables
