// The printer that the print dialog chose. Nothing prints yet.
#pragma once
