// Charts of analysed rows. Nothing draws one yet.
#pragma once
