// The headers of the chart library, which need the words of Qt that are off everywhere else.
#pragma once
#define signals Q_SIGNALS
#define slots Q_SLOTS
#define foreach Q_FOREACH
#include <qcustomplot.h>
#undef signals
#undef slots
#undef foreach
