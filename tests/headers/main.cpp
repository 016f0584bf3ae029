// Only the headers of this program are of use: other test programs take them compiled.
int main() { return 0; }
