#include "remote/service_fixture_posix.h"

#include "remote/service_contract.inc"
