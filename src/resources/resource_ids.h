// Numbers of the resources in the image; read by the resource compiler too.
#pragma once

#define MARLUNE_ICON 201
