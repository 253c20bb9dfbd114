// A program that ends by a fault.
int main(void)
{
    int* volatile nowhere = 0;
    return *nowhere;
}
