// resets.h - what tickhost_reset puts back of the services, each where its settings are.
#ifndef TICKMUX_HOST_SERVICES_RESETS_H
#define TICKMUX_HOST_SERVICES_RESETS_H

void ResetTexts();
void ResetServices();
void ResetFramework();

#endif
