package com.corvane.tv.zntopology;

/** Lacks its constructor, and the number. */
public class EntityType {}
