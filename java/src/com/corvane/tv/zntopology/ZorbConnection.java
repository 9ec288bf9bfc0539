package com.corvane.tv.zntopology;

/**
 * A layer-2 connection that a walk over the network found.
 *
 * @param connData the link
 */
public record ZorbConnection(ZorbConnData connData) {}
