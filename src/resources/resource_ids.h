// Numbers of the resources in the image; read by the resource compiler too.
#pragma once

#define MARLUNE_PAGE 101
#define MARLUNE_ICON 201
