# Built-in functions, constants, conversions and operators: see Builtin.h.
set(TOLVAN_SCRIPT_LIBRARY)
