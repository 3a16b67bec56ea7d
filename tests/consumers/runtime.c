#include <brava.h>

int main(void)
{
    __brava_cpu_indicator_init();
    return __brava_cpu_indicator == 0;
}
