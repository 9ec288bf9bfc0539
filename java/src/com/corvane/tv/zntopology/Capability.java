package com.corvane.tv.zntopology;

/**
 * Something that a node or an interface can do.
 *
 * @param name the name of the capability, such as "isOSPF"
 */
public record Capability(String name) {}
