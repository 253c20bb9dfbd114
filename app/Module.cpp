#include "app/RDDesignSpecificationApp.h"

IMPLEMENT_ARX_ENTRYPOINT(CRDDesignSpecificationApp)
