#include "platform/foreign/jet_reader.h"
