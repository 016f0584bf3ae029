// Only the headers of this library are of use: other libraries take them compiled.
