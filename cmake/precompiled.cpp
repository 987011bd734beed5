// Holds nothing: it is there for the headers that are parsed before it.
