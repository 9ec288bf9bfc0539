package com.corvane.tv.zntopology;

/**
 * Whether the store's topology may be read.
 *
 * @param state 0 if it is ready, 1 while it is being built, 2 if that is unknown
 * @param changeTime when it last became ready, in seconds UTC
 */
public record TopologyState(int state, long changeTime) {}
