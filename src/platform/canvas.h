// The drawing surface of the maps. Nothing draws yet.
#pragma once
